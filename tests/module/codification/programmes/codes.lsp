(loadcodept) ; => ((1 . "Point topo") (100 . "Station"))
(loadcodept 1) ; >> \nparametres incorrects.
(addcodept 12) ; => 12
(addcodept 13 "Arbre" "C:\\absent.dwg" 2 0) ; => 13
(addcodept 12 "encore") ; => nil
(addcodept 0) ; => nil
(addcodept 10000) ; => nil
(addcodept "1") ; >> \nparametres incorrects.
(addcodept 14 1) ; >> \nparametres incorrects.
(addcodept 14 "a" "b" 0) ; >> \nparametres incorrects.
(addcodept 14 "a" "b" 1 9) ; >> \nparametres incorrects.
(addcodept 14 "a" "b" 1 2 3) ; >> \nparametres incorrects.
(addcodept 14 "a" "" 1e-7) ; >> \nparametres incorrects.
(addcodept 14 "a" "" 1e7) ; >> \nparametres incorrects.
(addcodept 14 "a" "b") ; => nil
(addcodept 14 "a" "C:b.dwg") ; => nil
(addcodept 14 "a" "../b.dwg") ; => nil
(addcodept -3) ; => nil
(loadcodept) ; => ((1 . "Point topo") (100 . "Station") (12 . "Code 12") (13 . "Arbre"))

; A symbol of a block that cannot be had: the point is there all the same.
(tpcdaddpt "1" '(1 1 1.25) 13) ; => nil
(tpcdaddpt "2" '(2 2) 12) ; >> 
(tpcdaddpt "3" '(3 3) 100) ; >> 
(defun bloc (nom) (cdr (assoc 2 (entget (ename_pt nom))))) ; => BLOC
(bloc "2") ; => "velablk1"
(chgreppts 12 "C:\\absent.dwg") ; => nil
(bloc "2") ; => "velablk1"
(chgreppts 12 "velablk3") ; => 1
(bloc "2") ; => "velablk3"
; A block of this drawing alone is none that codes may name.
(mapcar 'entmake '(((0 . "BLOCK") (2 . "ici") (70 . 0) (10 0.0 0.0 0.0)) ((0 . "POINT") (10 0.0 0.0 0.0)) ((0 . "ENDBLK")))) ; >>
(null (tblsearch "BLOCK" "ici")) ; => nil
(chgreppts 12 "ici") ; => nil
(chgreppts 12 1) ; >> \nparametres incorrects.
(chgreppts 0 "velablk3") ; >> \nparametres incorrects.

(resetcodespts) ; => 3
(bloc "3") ; => "velablk1"
(cdr (assoc 1 (entget (entnext (ename_pt "3"))))) ; => "1"
(seloncode 100) ; => nil
(sslength (seloncode 1)) ; => 2
(resetcodespts 1) ; => 0
(resetcodespts 0) ; >> \nparametres incorrects.
(resetcodespts "1") ; >> \nparametres incorrects.

; Views: the points of a code, then all. A view too small is widened to ten units, with a margin.
(tpcdaddpt "far" '(1000 2000 0) 100) ; >> 
; < 100
(c:vcode) ; >> \nCode des points a visualiser:100\n1 points de code 100
; < 5
(c:vcode) ; >> \nCode des points a visualiser:5\nPas de points de code 5 dans cette table
; < 0
(c:vcode) ; >> \nCode des points a visualiser:0\nPas de points de code 0 dans cette table
(getvar "VIEWSIZE") ; => 11.0
(getvar "VIEWCTR") ; => (1000.0 2000.0 0.0)
(c:zoomleve) ; >> 
(c:zoomleve 1) ; >> \nparametres incorrects.
(getvar "VIEWCTR") ; => (500.5 1000.5 0.0)
(selectionnerCode 1) ; >> \nparametres incorrects.
(choixpoint 1) ; >> \nparametres incorrects.
