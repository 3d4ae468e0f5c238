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
