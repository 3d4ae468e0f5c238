; Entities as lists: shown, made, changed, walked through.
(entnext) ; => nil
(entlast) ; => nil
(null (entmakex '((0 . "LINE") (8 . "0") (62 . 3) (10 1 2 3) (11 4 5 6)))) ; => nil
(setq e (entlast) l (entget e)) (eq (cdr (assoc -1 l)) e) ; => T
(list (assoc 0 l) (assoc 8 l) (assoc 62 l) (assoc 10 l) (assoc 11 l)) ; => ((0 . "LINE") (8 . "0") (62 . 3) (10 1.0 2.0 3.0) (11 4.0 5.0 6.0))
(eq (handent (cdr (assoc 5 l))) e) ; => T
(handent "FFFFF") ; => nil
(entget 5) ; !> argument de type incorrect : lentityp: 5
; Radians, where a drawing file has degrees; a layer when none is given.
(type (entmakex '((0 . "ARC") (10 0 0) (40 . 2.0) (50 . 0.5) (51 . 1.5)))) ; => ENAME
(setq l (entget (entlast))) (list (assoc 8 l) (assoc 40 l) (assoc 50 l) (assoc 51 l)) ; => ((8 . "0") (40 . 2.0) (50 . 0.5) (51 . 1.5))
(entmake '((0 . "CIRCLE") (8 . "0") (62 . 5) (10 1 2 3) (40 . 2.5))) ; => ((0 . "CIRCLE") (8 . "0") (62 . 5) (10 1 2 3) (40 . 2.5))
(setq l (entget (entlast))) (list (assoc 0 l) (assoc 8 l) (assoc 62 l) (assoc 10 l) (assoc 40 l)) ; => ((0 . "CIRCLE") (8 . "0") (62 . 5) (10 1.0 2.0 3.0) (40 . 2.5))
; What the list does not name stays.
(entmod (subst '(40 . 7.0) (assoc 40 l) l)) (cdr (assoc 40 (entget (entlast)))) ; => 7.0
(cdr (assoc 62 (entget (entlast)))) ; => 5
(entmod (list (assoc -1 l) '(62 . 1))) (cdr (assoc 40 (entget (entlast)))) ; => 7.0
; A layer that is not there is made.
(entmod (subst '(8 . "A_FAIRE") (assoc 8 l) l)) (cdr (assoc 8 (entget (entlast)))) ; => "A_FAIRE"
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 1 1) (10 2 3))) (vl-remove-if-not '(lambda (p) (= (car p) 10)) (entget (entlast))) ; => ((10 1.0 1.0) (10 2.0 3.0))
(equal (setq l (entget (entlast))) (entmod l)) ; => T
(entmod (append l '((-3 ("ACAD" (1004 . "00fF10")))))) (assoc -3 (setq l (entget (entlast) '("*")))) ; => (-3 ("ACAD" (1004 . "00FF10")))
(equal (entmod l) l) ; => T
(entmod (append (entget (entlast)) '((-3 ("ACAD" (1004 . "0x")))))) ; !> argument de type incorrect : octets: "0x"
(entmake '((0 . "TABLE") (2 . "A"))) ; !> ENTMAKE ne crée pas ce type d'objet : TABLE
(entmake '((0 . "LINE") (6 . "PAS_LA") (10 0 0) (11 1 1))) ; => nil
(entmake '((0 . "LINE") (10 . "a"))) ; !> point incorrect : "a"
; Walks pass over what is erased, and go on from it.
(setq e (entnext)) (while e (entdel e) (setq e (entnext e))) (entnext) ; => nil
(foreach x '(0 1 2 3) (entmake (list '(0 . "POINT") (list 10 x 0 0)))) (defun abscisses (/ e r) (setq e (entnext)) (while e (setq r (cons (cadr (assoc 10 (entget e))) r) e (entnext e))) (reverse r)) (abscisses) ; => (0.0 1.0 2.0 3.0)
(setq e (entnext (entnext))) (eq (entdel e) e) ; => T
(abscisses) ; => (0.0 2.0 3.0)
(entget e) ; => nil
(cadr (assoc 10 (entget (entnext e)))) ; => 2.0
(entdel e) (abscisses) ; => (0.0 1.0 2.0 3.0)
(entmake '((0 . "POINT") (10 9 0 0))) (abscisses) ; => (0.0 1.0 2.0 3.0 9.0)

; A locked layer: what stands on it stays, and more can be drawn on it.
(entmake '((0 . "POINT") (8 . "0") (10 1 0 0))) ; => ((0 . "POINT") (8 . "0") (10 1 0 0))
(setq e (entlast) l (entget e) c (entget (tblobjname "LAYER" "0")) couche (subst '(70 . 4) (assoc 70 c) c)) ; >> 
(equal (entmod couche) couche) ; => T
(entmod (subst '(10 5.0 5.0 0.0) (assoc 10 l) l)) ; => nil
(entdel e) ; => nil
(assoc 10 (entget e)) ; => (10 1.0 0.0 0.0)
(type (entmakex '((0 . "POINT") (8 . "0") (10 2 0 0)))) ; => ENAME
(equal (entmod c) c) ; => T
