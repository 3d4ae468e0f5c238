; entmake and entmod: tables, entities of several lists, extended data.
(null (entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "Bornes") (70 . 0) (62 . 3)))) ; => nil
(cdr (assoc 62 (tblsearch "LAYER" "bornes"))) ; => 3
(cdr (assoc 6 (tblsearch "LAYER" "bornes"))) ; => "Continuous"
(entmake '((0 . "LAYER") (2 . "BORNES") (70 . 0))) ; => nil
(entmake '((0 . "LAYER") (70 . 0))) ; => nil
(null (entmake '((0 . "STYLE") (2 . "Petit") (70 . 0) (40 . 1.8) (3 . "arial.ttf")))) ; => nil
(cdr (assoc 40 (tblsearch "STYLE" "PETIT"))) ; => 1.8
(regapp "TOPO") ; => "TOPO"
(regapp "topo") ; => nil
(null (entmake '((0 . "POINT") (8 . "Bornes") (10 1 2 3) (-3 ("TOPO" (1000 . "S1") (1070 . 7) (1010 1 2 3)))))) ; => nil
(cdr (assoc -3 (entget (entlast) '("TOPO")))) ; => (("TOPO" (1000 . "S1") (1070 . 7) (1010 1.0 2.0 3.0)))
(sslength (ssget "X" '((-3 ("TOPO"))))) ; => 1
(entmake '((0 . "POINT") (10 1 2 3) (-3 ("INCONNU" (1000 . "S1"))))) ; => nil
(progn (setq e (entget (entlast))) (entmod (append e '((-3 ("TOPO" (1000 . "S2")))))) (cdr (assoc -3 (entget (entlast) '("*"))))) ; => (("TOPO" (1000 . "S2")))
(progn (entmod '((0 . "POINT"))) nil) ; !> argument de type incorrect : lentityp: nil
(null (entmake '((0 . "POLYLINE") (8 . "Bornes") (66 . 1) (70 . 8)))) ; => nil
(ssget "X" '((0 . "POLYLINE"))) ; => nil
(null (entmake '((0 . "VERTEX") (70 . 32) (10 1 1 1)))) ; => nil
(null (entmake '((0 . "VERTEX") (70 . 32) (10 2 2 2)))) ; => nil
(setq p (entmakex '((0 . "SEQEND")))) (cadr (mapcar (quote cdr) (vl-remove-if-not (quote (lambda (g) (= (car g) 100))) (entget p)))) ; => "AcDb3dPolyline"
(cdr (assoc 10 (entget (entnext p)))) ; => (1.0 1.0 1.0)
(cdr (assoc 0 (entget (entnext (entnext (entnext p)))))) ; => "SEQEND"
(cdr (assoc 8 (entget p))) ; => "Bornes"
(progn (entmake '((0 . "POLYLINE") (66 . 1) (70 . 0))) (entmake '((0 . "VERTEX") (10 5 5 0))) (entmake '((0 . "VERTEX") (10 6 6 0))) (null (entmake '((0 . "SEQEND"))))) ; => nil
(car (member '(100 . "AcDb2dPolyline") (entget (entlast)))) ; => (100 . "AcDb2dPolyline")
(entmake '((0 . "VERTEX") (10 5 5 0))) ; => nil
(entmake '((0 . "SEQEND"))) ; => nil
(progn (entmake '((0 . "POLYLINE") (66 . 1))) (entmake '((0 . "LINE") (10 0 0 0) (11 1 1 0))) (entmake '((0 . "SEQEND")))) ; => nil
(cdr (assoc 0 (entget (entlast)))) ; => "LINE"
(progn (entmake '((0 . "BLOCK") (2 . "BORNE") (70 . 2) (10 0 0 0))) (entmake '((0 . "CIRCLE") (10 0 0 0) (40 . 0.5))) (null (entmake '((0 . "ENDBLK"))))) ; => nil
(cdr (assoc 0 (entget (cdr (assoc -2 (tblsearch "BLOCK" "borne")))))) ; => "CIRCLE"
(cdr (assoc 0 (entget (entlast)))) ; => "LINE"
(progn (entmake '((0 . "INSERT") (66 . 1) (2 . "BORNE") (10 3 3 0))) (entmake '((0 . "ATTRIB") (10 3 3 0) (40 . 2.0) (1 . "12") (2 . "NUM") (70 . 0))) (setq i (entmakex '((0 . "SEQEND")))) (cdr (assoc 2 (entget i)))) ; => "BORNE"
(cdr (assoc 1 (entget (entnext i)))) ; => "12"
(entmake '((0 . "BLOCK"))) ; => nil
(entmake '((0 . "ENDBLK"))) ; => nil
(entmake '((0 . "XRECORD"))) ; !> ENTMAKE ne crée pas ce type d'objet : XRECORD
(entmake '((8 . "0"))) ; !> ENTMAKE ne crée pas ce type d'objet : nil
(setq l (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 0 0) (10 5 5)))) (length (vl-remove-if-not '(lambda (g) (= (car g) 10)) (entget l))) ; => 2
(progn (entmod (subst '(10 9.0 9.0) '(10 5.0 5.0) (entget l))) (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 10)) (entget l)))) ; => ((0.0 0.0) (9.0 9.0))
(progn (entmod (list (cons -1 l) '(62 . 4))) (mapcar 'cdr (vl-remove-if-not '(lambda (g) (member (car g) '(10 62))) (entget l)))) ; => (4 (0.0 0.0) (9.0 9.0))
; entget tells what the maker left out, save what programs take for not set: a colour, a thickness, attributes.
(setq e (entmakex '((0 . "TEXT") (10 1 2 0) (40 . 2.5) (1 . "S1")))) (mapcar '(lambda (c) (cdr (assoc c (entget e)))) '(67 410 50 41 51 7 71 72 73 11 210 62 39)) ; => (0 "Model" 0.0 1.0 0.0 "Standard" 0 0 0 (0.0 0.0 0.0) (0.0 0.0 1.0) nil nil)
(progn (entmod (subst '(50 . 1.5) (assoc 50 (entget e)) (entget e))) (cdr (assoc 50 (entget e)))) ; => 1.5
(progn (entmod (append (entget e) '((62 . 3) (72 . 1)))) (mapcar '(lambda (c) (cdr (assoc c (entget e)))) '(62 72))) ; => (3 1)
(progn (entmod (subst '(62 . 256) '(62 . 3) (entget e))) (assoc 62 (entget e))) ; => nil
(eq (entupd e) e) ; => T
(mapcar '(lambda (c) (cdr (assoc c (entget i)))) '(66 41 42 43 50 44)) ; => (1 1.0 1.0 1.0 0.0 0.0)
(cdr (assoc 410 (entget (entnext i)))) ; => "Model"
(setq p (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 1) (10 0 0) (42 . 0.5) (10 4 0)))) (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 42)) (entget p))) ; => (0.5 0.0)
(equal (entmod (entget p)) (entget p)) ; => T
(entmod (list (cons -1 p) '(42 . 0.5))) ; => nil
; entmod of what holds lists: they are taken as a whole.
(setq m (entmakex '((0 . "MTEXT") (100 . "AcDbEntity") (100 . "AcDbMText") (10 0 0 0) (40 . 2.5) (1 . "abc")))) (entmod (subst '(1 . "def") (assoc 1 (entget m)) (entget m))) (cdr (assoc 1 (entget m))) ; => "def"
(progn (entmod (subst '(50 . 0.5) (assoc 50 (entget m)) (entget m))) (rtos (cdr (assoc 50 (entget m))) 2 6)) ; => "0.500000"
(progn (entmod (subst '(50 . 0.25) (assoc 50 (entget m)) (entget m))) (rtos (cdr (assoc 50 (entget m))) 2 6)) ; => "0.250000"
(progn (entmod (list (cons -1 m) '(11 0 1 0))) (equal (cdr (assoc 50 (entget m))) (/ pi 2) 1e-9)) ; => T
(defun combien (code e) (length (vl-remove-if-not '(lambda (g) (= (car g) code)) (entget e)))) ; => COMBIEN
(setq s (entmakex '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 3) (72 . 8) (73 . 4) (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 1.0) (40 . 1.0) (40 . 1.0) (40 . 1.0) (10 0 0 0) (10 5 5 0) (10 9 0 0) (10 9 5 0)))) (entmod (subst '(10 5.0 7.0 0.0) '(10 5.0 5.0 0.0) (entget s))) (list (combien 40 s) (combien 10 s) (combien 73 s) (member '(10 5.0 7.0 0.0) (list (nth 1 (vl-remove-if-not '(lambda (g) (= (car g) 10)) (entget s)))))) ; => (8 4 1 ((10 5.0 7.0 0.0)))
(setq h (entmakex '((0 . "HATCH") (100 . "AcDbEntity") (100 . "AcDbHatch") (10 0 0 0) (210 0 0 1) (2 . "SOLID") (70 . 1) (71 . 0) (91 . 1) (92 . 3) (72 . 0) (73 . 1) (93 . 3) (10 0 0 0) (10 10 0 0) (10 10 10 0) (97 . 0) (75 . 0) (76 . 1) (98 . 1) (10 5 5 0))) n (length (entget h))) (entmod (append (subst '(10 20.0 0.0) '(10 10.0 0.0) (subst '(10 20.0 0.0 0.0) '(10 10.0 0.0 0.0) (entget h))) '((62 . 1)))) (list (- (length (entget h)) n) (combien 10 h) (cdr (assoc 62 (entget h)))) ; => (1 5 1)
(entmod (list (cons -1 h) '(91 . 1))) ; => nil
(combien 10 h) ; => 5
(setq t1 (entmakex '((0 . "LTYPE") (2 . "TIRETS") (70 . 0) (3 . "_ _") (72 . 65) (73 . 2) (40 . 0.75) (49 . 0.5) (74 . 0) (49 . -0.25) (74 . 0)))) (entmod (subst '(3 . "court") (assoc 3 (entget t1)) (entget t1))) (list (combien 49 t1) (cdr (assoc 3 (entget t1)))) ; => (2 "court")
; a layer that is not there is made; other names must be there
(null (entmake '((0 . "POINT") (8 . "Jalons") (10 0 0 0)))) ; => nil
(mapcar '(lambda (c) (cdr (assoc c (tblsearch "LAYER" "JALONS")))) '(2 62 6)) ; => ("Jalons" 7 "Continuous")
(entmake '((0 . "POINT") (8 . "a*b") (10 0 0 0))) ; => nil
(entmake '((0 . "INSERT") (2 . "PAS_LA") (10 0 0 0))) ; => nil
(entmake '((0 . "TEXT") (10 0 0 0) (40 . 1.0) (1 . "a") (7 . "PAS_LA"))) ; => nil
(entmake '((0 . "POINT") (6 . "PAS_LA") (10 0 0 0))) ; => nil
(null (entmake '((0 . "POINT") (6 . "ByLayer") (10 0 0 0)))) ; => nil
(entmod (list (cons -1 e) '(7 . "PAS_LA"))) ; => nil
(setq l (entget (tblobjname "LAYER" "Jalons"))) (null (entmod (subst '(2 . "Piquets") (assoc 2 l) l))) ; => nil
(list (tblsearch "LAYER" "Jalons") (cdr (assoc 2 (tblsearch "LAYER" "PIQUETS")))) ; => (nil "Piquets")
(entmod (subst '(2 . "Bornes") (assoc 2 l) l)) ; => nil
(list (tblsearch "UCS" "x") (tblnext "VIEW" T)) ; => (nil nil)
; xrecords and dictionaries
(setq d (namedobjdict) x (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1) (1 . "a") (70 . 5) (10 1 2 3)))) (eq (dictadd d "SUIVI" x) x) ; => T
(mapcar '(lambda (c) (cdr (assoc c (dictsearch d "suivi")))) '(0 1 70 10)) ; => ("XRECORD" "a" 5 (1.0 2.0 3.0))
(dictadd d "SUIVI" (entmakex '((0 . "XRECORD") (1 . "b")))) ; => nil
(progn (entmod (subst '(70 . 6) '(70 . 5) (entget x))) (list (cdr (assoc 70 (entget x))) (combien 1 x) (combien 280 x))) ; => (6 1 1)
(dictrename d "SUIVI" "LEVE_SUIVI") ; => "LEVE_SUIVI"
(eq (dictremove d "LEVE_SUIVI") x) ; => T
(dictsearch d "LEVE_SUIVI") ; => nil
(setq d2 (dictadd d "ATELIER" (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary"))))) (dictadd d2 "UN" (entmakex '((0 . "XRECORD") (40 . 2.5)))) (cdr (assoc 40 (dictsearch d2 "UN"))) ; => 2.5
; curves
(setq c (entmakex '((0 . "LINE") (10 0 0 0) (11 10 0 0)))) (list (vlax-curve-getDistAtPoint c '(4 0 0)) (vlax-curve-getPointAtDist c 2.5) (vlax-curve-getClosestPointTo c '(3 5 0)) (vlax-curve-getClosestPointTo c '(-3 5 0) t)) ; => (4.0 (2.5 0.0 0.0) (3.0 0.0 0.0) (-3.0 0.0 0.0))
(list (vlax-curve-getDistAtPoint c '(4 1 0)) (vlax-curve-getPointAtDist c 11) (vlax-curve-isClosed c)) ; => (nil nil nil)
(setq q (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 1) (10 0 0) (10 4 0) (10 4 3) (10 0 3)))) (list (vlax-curve-getArea q) (vlax-curve-getDistAtParam q (vlax-curve-getEndParam q)) (vlax-curve-isClosed q) (vlax-curve-getPointAtParam q 1.5)) ; => (12.0 14.0 T (4.0 1.5 0.0))
(vlax-curve-getArea e) ; !> argument de type incorrect : courbe:
