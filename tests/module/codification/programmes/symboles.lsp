; A new drawing; codes 1 and 100.
(defun texte (nom tag / e d) (setq e (entnext (ename_pt nom))) (while (/= (cdr (assoc 2 (setq d (entget e)))) tag) (setq e (entnext e))) (cdr (assoc 1 d))) ; => TEXTE
(type (tpcdaddpt "p1" '(100 200 12.345))) ; => ENAME
(type (tpcdaddpt " p2" '(110.0 200.0 13.25) 100 "mur")) ; => ENAME
(type (tpcdaddpt "A3" '(110 210))) ; => ENAME
(add_pt "7" '(0 0 1)) ; => T
(maxnum) ; => 8
(texte "P1" "NUMPT") ; => "P1"
(texte "P1" "Z") ; => "12.35"
(texte "A3" "Z") ; => ""
(texte "p2" "CODE") ; => "100"
(texte "p2" "OBS") ; => "mur"
(cdr (assoc 10 (entget (ename_pt "p2")))) ; => (110.0 200.0 0.0)
(cdr (assoc 2 (entget (ename_pt "p2")))) ; => "velablk3"
(cdr (assoc -3 (entget (ename_pt "p1") '("VELAPLUS")))) ; => (("VELAPLUS" (1070 . 1)))
(ename_pt "7") ; => nil
(ename_pt "absent") ; => nil
(ename_pt) ; => nil
(ename_pt) ; >> \nparametres incorrects.
(ename_pt 1) ; >> \nparametres incorrects.
(tpcdaddpt "x") ; >> \nparametres incorrects.
(tpcdaddpt "x" '(1 2 3) 1 "o" 2) ; >> \nparametres incorrects.
(tpcdaddpt "x" '(1 2 3) "1") ; >> \nparametres incorrects.
(tpcdaddpt "x" '(1 2 3) -5) ; >> \nparametres incorrects.
(tpcdaddpt "x" '(1 2 3) 10000) ; >> \nparametres incorrects.
(add_pt "x" '(1 2 3) 0) ; >> \nparametres incorrects.

; Sizes of blocks: the symbol of a new code is a cross of 0.35 on each side.
(calctailleblock "VELABLK1") ; => (0.7 0.7)
(calctailleblock "absent") ; => nil
(calctailleblock 1) ; >> \nparametres incorrects.

; Selections: only points that are drawn.
(sslength (select_all)) ; => 3
(eq (ssname (select_all) 0) (ename_pt "p1")) ; => T
(select_all 1) ; >> \nparametres incorrects.
(progn (repeat 600 (setq jeu (select_all))) (sslength jeu)) ; => 3
(sslength (seloncode 1)) ; => 2
(seloncode 5) ; => nil
(seloncode "1") ; >> \nparametres incorrects.
(type (tpcdaddpt "10" '(1 1))) ; => ENAME
(type (tpcdaddpt "11" '(2 2))) ; => ENAME
(sslength (selonnum 10)) ; => 1
(sslength (selonnum 1 99)) ; => 2
(selonnum 12 99) ; => nil
(sslength (selonnum "p*,11")) ; => 3
(sslength (selonnum "9-10, a3 ,11-12")) ; => 3
(selonnum "-3") ; => nil
(selonnum 1 2 3) ; >> \nparametres incorrects.
(selonnum 1.5) ; >> \nparametres incorrects.
(selonnum "1" 2) ; >> \nparametres incorrects.

; Attributes.
(attrvisibility "Z" nil) ; => 5
(attrvisibility "z" nil) ; => 0
(attrvisibility "Z" T (selonnum "10")) ; => 1
(attrvisibility "*" T (selonnum "p1")) ; => 2
(attrvisibility "Z" 1) ; >> \nparametres incorrects.
(attrvisibility "Z") ; >> \nparametres incorrects.
(modif-attrib (ename_pt "p1") "obs" "borne" "NUMPT" "P1 bis" "PAS" "x") ; => 2
(texte "p1" "OBS") ; => "borne"
(texte "p1" "NUMPT") ; => "P1 bis"
(modif-attrib (ename_pt "p1") "OBS") ; >> \nparametres incorrects.
(modif-attrib "p1" "OBS" "x") ; >> \nparametres incorrects.
(entmake '((0 . "LINE") (10 0 0 0) (11 1 1 0))) ; => ((0 . "LINE") (10 0 0 0) (11 1 1 0))
(modif-attrib (entlast) "OBS" "x") ; => nil
(reg_pts) ; => 6
(texte "p1" "NUMPT") ; => "p1"
(type (ename_pt "7")) ; => ENAME
(texte "7" "Z") ; => "1.00"
(reg_pts 1) ; >> \nparametres incorrects.
(entdel (ename_pt "7")) ; >> 
(ename_pt "7") ; => nil
(reg_pts) ; => 6
(type (ename_pt "7")) ; => ENAME

; Size of the symbols: texts keep their places relative to it.
(updarxttxt -2) ; => 6
(cdr (assoc 41 (entget (ename_pt "p1")))) ; => 2.0
(cdr (assoc 40 (entget (entnext (ename_pt "p1"))))) ; => 2.0
(cdr (assoc 10 (entget (entnext (ename_pt "p1"))))) ; => (101.5 204.0 0.0)
(type (tpcdaddpt "12" '(3 3))) ; => ENAME
(cdr (assoc 41 (entget (ename_pt "12")))) ; => 2.0
(updarxttxt 1e-7) ; => 7
(assoc 41 (entget (ename_pt "p1"))) ; => (41 . 1.0)
(updarxttxt "1") ; >> \nparametres incorrects.
(type (entmod (list (assoc -1 (setq d (entget (ename_pt "p1")))) '(41 . -1.0)))) ; => LIST
(progn (updarxttxt 2) (setq d (entget (ename_pt "p1"))) (list (cdr (assoc 41 d)) (cdr (assoc 42 d)))) ; => (-2.0 2.0)
(progn (updarxttxt 1) (entmod (list (assoc -1 (setq d (entget (ename_pt "p1")))) '(41 . 1.0))) (cdr (assoc 41 (entget (ename_pt "p1"))))) ; => 1.0

; Extended data.
(sxd (ename_pt "p1") '((1000 . "lev\U+00E9") (1070 . 3) (1071 . 70000) (1040 . 2.5) (1010 1.0 2.0 3.0) (1002 . "{") (1002 . "}"))) ; => T
(cdr (assoc -3 (entget (ename_pt "p1") '("VELAPLUS")))) ; => (("VELAPLUS" (1000 . "levé") (1070 . 3) (1071 . 70000) (1040 . 2.5) (1010 1.0 2.0 3.0) (1002 . "{") (1002 . "}")))
(sxd (ename_pt "p1") nil) ; => T
(assoc -3 (entget (ename_pt "p1") '("VELAPLUS"))) ; => nil
(sxd (ename_pt "p1") '((1070 . "a"))) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") '((1070 . 40000))) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") '((8 . "0"))) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") '((1070 . 1.0))) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") '((1e300 . 1))) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") '((1010 1.0 2.0))) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") '(1070 1)) ; >> \nparametres incorrects.
(sxd "p1" nil) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") T) ; >> \nparametres incorrects.
(sxd (ename_pt "p1") '((1002 . "{") (1000 . "a"))) ; >> \nErreur de entmod=-5003
(sxd (ename_pt "p1") '((1003 . "absent"))) ; >> \nErreur de entmod=-5003
(progn (setq long "0123456789") (repeat 11 (setq long (strcat long long))) (sxd (ename_pt "p1") (list (cons 1000 long)))) ; >> \nErreur de entmod=-5003
(assoc -3 (entget (ename_pt "p1") '("VELAPLUS"))) ; => nil

; What the user locked stays: attributes, sizes, and no second symbol on top.
(setq e (entnext (ename_pt "p1")) etiquette (cdr (assoc 2 (entget e))) valeur (cdr (assoc 1 (entget e)))) ; >> 
(type (entmod (list (assoc -1 (setq d (entget (tblobjname "LAYER" (cdr (assoc 8 (entget e))))))) '(70 . 4)))) ; => LIST
(modif-attrib (ename_pt "p1") etiquette "autre") ; => 0
(modif-attrib (ename_pt "p1") etiquette "autre") ; >> \n1 objet est sur un calque verrouillé : il n'a pas été modifié.
(attrvisibility etiquette nil (selonnum "p1")) ; => 0
(equal (cdr (assoc 1 (entget e))) valeur) ; => T
(progn (updarxttxt 3) (cdr (assoc 41 (entget (ename_pt "p1"))))) ; => 1.0
(progn (setq nombre (sslength (ssget "_X" '((0 . "INSERT"))))) (reg_pts) (= nombre (sslength (ssget "_X" '((0 . "INSERT")))))) ; => T
(type (entmod (list (assoc -1 d) '(70 . 0)))) ; => LIST
(type (entmod (list (assoc -1 (setq d (entget (tblobjname "LAYER" (cdr (assoc 8 (entget (ename_pt "p1")))))))) '(70 . 4)))) ; => LIST
(list (modif-attrib (ename_pt "p1") etiquette "autre") (attrvisibility etiquette nil (selonnum "p1"))) ; => (0 0)
(type (entmod (list (assoc -1 d) '(70 . 0)))) ; => LIST
(progn (updarxttxt 1) (cdr (assoc 41 (entget (ename_pt "p1"))))) ; => 1.0

; Points on one another.
(superpos) ; >> \n0 superposition(s)
(add_pt "double" '(110.0 210.0005)) ; => T
(add_pt "loin" '(110.0 210.0025)) ; => T
(superpos) ; => (("A3" "double"))
(superpos 0.0025) ; => (("A3" "double" "loin"))
(superpos 0) ; >> \nparametres incorrects.
