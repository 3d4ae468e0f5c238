; Selection sets of AutoLISP, in a drawing of its own.
(entmake '((0 . "LINE") (8 . "0") (10 0 0 0) (11 10 0 0))) ; => ((0 . "LINE") (8 . "0") (10 0 0 0) (11 10 0 0))
(setq a (entlast) x (entmakex '((0 . "CIRCLE") (10 100 0 0) (40 . 2.5)))) (sslength (ssget "X")) ; => 2
(setq ss (ssget "_X" '((0 . "LINE")))) (eq (ssname ss 0) a) ; => T
(sslength ss) ; => 1
(ssname ss 1) ; => nil
(ssname ss -1) ; => nil
(eq (ssname (ssget "X") 0) x) ; => T
(ssget "X" '((0 . "POINT"))) ; => nil
(sslength (ssget "X" '((-4 . "<OR") (0 . "LINE") (0 . "CIRCLE") (-4 . "OR>")))) ; => 2
(sslength (ssget "X" '((-4 . ">=") (40 . 2)))) ; => 1
(sslength (ssget "X" '((-4 . ">,*,*") (10 50 0 0)))) ; => 1
(ssget "X" '((-3 ("TOPO")))) ; => nil
(ssget "X" '(0)) ; !> liste de filtre de SSGET incorrecte
(ssget "X" '(("a" . 1))) ; !> liste de filtre de SSGET incorrecte
(eq (ssadd x ss) ss) ; => T
(sslength ss) ; => 2
(sslength (ssadd x ss)) ; => 2
(eq (ssmemb x ss) x) ; => T
(ssmemb x (ssadd)) ; => nil
(sslength (ssdel a ss)) ; => 1
(ssdel a ss) ; => nil
(type ss) ; => PICKSET
(sslength 1) ; !> argument de type incorrect : lselsetp: 1
(ssadd 1) ; !> argument de type incorrect : lentityp: 1
(sslength (ssget "W" '(-1 -1) '(11 1))) ; => 1
(sslength (ssget "C" '(5 -1) '(6 1))) ; => 1
(ssget "W" '(5 -1) '(6 1)) ; => nil
(sslength (ssget "CP" '((90 -10) (110 -10) (100 20)))) ; => 1
(sslength (ssget "F" '((5 -1) (5 1)) '((0 . "LINE")))) ; => 1
(ssget "F" '((5 -1) (5 1)) '((0 . "TEXT"))) ; => nil
(sslength (ssget '(5 0))) ; => 1
(ssget '(5 20)) ; => nil
(sslength (ssget "P")) ; => 1
(progn (repeat 2000 (ssget "X")) (sslength (ssget "X"))) ; => 2
(setq n 0 ss (ssget "X")) (while (setq e (ssname ss 0)) (ssdel e ss) (setq n (1+ n))) n ; => 2
; < <5,0> | <100,2.5> |
(sslength (ssget)) ; => 2
; < <5,0>
(sslength (ssget "_:S" '((0 . "LINE")))) ; => 1
; < <Esc>
(ssget) ; !> Fonction annulée
; < <5,0>
(equal (entsel) (list a '(5.0 0.0 0.0))) ; => T
; < <5,20>
(list (entsel) (getvar "ERRNO")) ; => (nil 7)
; < <5,0>
(equal (nentsel "Objet : ") (list a '(5.0 0.0 0.0))) ; => T
(equal (nentselp '(5 0)) (list a '(5.0 0.0 0.0))) ; => T
(progn (sssetfirst nil (ssadd a)) (sslength (ssget "I"))) ; => 1
(sslength (cadr (ssgetfirst))) ; => 1
(progn (sssetfirst nil nil) (cadr (ssgetfirst))) ; => nil
