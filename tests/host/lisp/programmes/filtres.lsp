; What ssget finds, by filter, by way and by answer. Known entities, each told by a letter:
;   a line on layer "Murs", colour 1         b line on "Haies", by layer
;   c circle of radius 2.5 on "Murs"         d text "Borne 12" on "0", turned by 90 degrees, data of "TOPO"
;   e point at 10,20,30 on "Gelé" (frozen)   f polyline on "Verrou" (locked), vertices 0,0 and 5,5
(foreach l '(("Murs" 0) ("Haies" 0) ("Gelé" 1) ("Verrou" 4)) (entmake (list '(0 . "LAYER") (cons 2 (car l)) (cons 70 (cadr l))))) (regapp "TOPO") ; => "TOPO"
(defun faire (lettre liste) (setq noms (cons (cons (entmakex liste) lettre) noms)) lettre) ; => FAIRE
(faire "a" '((0 . "LINE") (8 . "Murs") (62 . 1) (10 0 0 0) (11 10 0 0))) ; => "a"
(faire "b" '((0 . "LINE") (8 . "Haies") (10 0 50 0) (11 10 50 0))) ; => "b"
(faire "c" '((0 . "CIRCLE") (8 . "Murs") (10 100 0 0) (40 . 2.5))) ; => "c"
(faire "d" (list '(0 . "TEXT") '(10 200 0 0) '(1 . "Borne 12") '(40 . 2.0) (cons 50 (/ pi 2)) '(-3 ("TOPO" (1070 . 7))))) ; => "d"
(faire "e" '((0 . "POINT") (8 . "Gelé") (10 10 20 30))) ; => "e"
(faire "f" '((0 . "LWPOLYLINE") (8 . "Verrou") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 0 0) (10 5 5))) ; => "f"
(defun lettres (s / i r) (if s (progn (setq i 0 r "") (while (ssname s i) (setq r (strcat r (cdr (assoc (ssname s i) noms))) i (1+ i))) r))) (defun x (f) (lettres (ssget "X" f))) ; => X
; Filters: the youngest first; nil for a filter that is wrong, or when nothing is found.
(x nil) ; => "fedcba"
(x '((0 . "LINE"))) ; => "ba"
(x '((0 . "line,Circle"))) ; => "cba"
(x '((0 . "*LINE"))) ; => "fba"
(x '((0 . "~*LINE"))) ; => "edc"
(x '((8 . "murs"))) ; => "ca"
(x '((0 . "LINE") (8 . "MURS"))) ; => "a"
(x '((8 . "GELÉ"))) ; => "e"
(x '((62 . 1))) ; => "a"
(x '((62 . 256))) ; => "fedcb"
(x '((6 . "ByLayer"))) ; => "fedcba"
(x '((67 . 0))) ; => "fedcba"
(x '((67 . 1))) ; => nil
(x '((410 . "Model"))) ; => "fedcba"
(x '((410 . "~Model"))) ; => nil
(x '((1 . "BORNE #*"))) ; => "d"
(x '((40 . 2.5))) ; => "c"
(x '((-4 . ">=") (40 . 2.0))) ; => "dc"
(x '((-4 . "<") (40 . 2.5))) ; => "d"
(x '((-4 . "!=") (40 . 2.5))) ; => "d"
(x '((-4 . "*") (40 . 0.0))) ; => "dc"
(x (list (cons 50 (/ pi 2)))) ; => "d"
(x '((10 10 20 30))) ; => "e"
(x '((10 5 5 0))) ; => "f"
(x '((-4 . ">,<,*") (10 50 50 0))) ; => "dc"
(x '((-4 . "*,>=") (10 50 50 0))) ; => "b"
(x '((100 . "AcDbCircle"))) ; => "c"
(x '((100 . "AcDbCurve"))) ; => "fcba"
(x '((1001 . "TOPO"))) ; => "d"
(x '((-3 ("to*")))) ; => "d"
(x '((1001 . "AUTRE"))) ; => nil
(x '((-4 . "&") (62 . 3))) ; => "a"
(x '((-4 . "&=") (62 . 3))) ; => nil
(x '((-4 . "<OR") (0 . "POINT") (0 . "TEXT") (-4 . "OR>"))) ; => "ed"
(x '((-4 . "<not") (0 . "LINE") (-4 . "NOT>"))) ; => "fedc"
(x '((-4 . "<XOR") (0 . "LINE") (8 . "Murs") (-4 . "XOR>"))) ; => "cb"
(x '((-4 . "<OR") (-4 . "<AND") (0 . "LINE") (8 . "Haies") (-4 . "AND>") (0 . "POINT") (-4 . "OR>"))) ; => "eb"
(x '((-4 . "<OR") (0 . "LINE"))) ; => nil
(x '((-4 . "OR>"))) ; => nil
(x '((-4 . "<OR") (-4 . "<AND") (62 . 1) (-4 . "OR>") (-4 . "AND>"))) ; => nil
(x '((-4 . "<NOT") (62 . 1) (62 . 2) (-4 . "NOT>"))) ; => nil
(x '((-4 . "=>") (62 . 1))) ; => nil
(x '((-4 . ">"))) ; => nil
(x '((-4 . ">") (8 . "Murs"))) ; => nil
(x '((-4 . "&") (40 . 2.5))) ; => nil
; Ways: no frozen or locked layers in "A"; the youngest that shows; wholly inside or met.
(lettres (ssget "A")) ; => "dcba"
(lettres (ssget "L")) ; => "f"
(lettres (ssget "W" '(-1 -1) '(11 1))) ; => "a"
(lettres (ssget "W" '(-1 -1) '(5 1))) ; => nil
(lettres (ssget "C" '(-1 -1) '(5 1))) ; => "fa"
(lettres (ssget "C:L" '(-1 -1) '(5 1))) ; => "a"
(lettres (ssget '(5 50))) ; => "b"
(lettres (ssget '(5 40))) ; => nil
(lettres (ssget "F" '((5 -5) (5 55)))) ; => "fba"
(lettres (ssget "WP" '((90 -10) (110 -10) (100 20)))) ; => "c"
(lettres (ssget "CP" '((90 -10) (110 -10) (100 20)))) ; => "c"
(lettres (ssget "P")) ; => "c"
(list (ssget "I") (ssget "Q") (ssget "W")) ; => (nil nil nil)
; Answers: by points, windows, options and keywords.
; < <5,0> | 5,50 |
(lettres (ssget)) ; => "ab"
; <
(ssget) ; => nil
; < <5,0> | <Esc>
(ssget) ; !> Fonction annulée
; < <-3,-3> | <11,1> |
(lettres (ssget)) ; => "a"
; < <5,-2> | <4,1> |
(lettres (ssget)) ; => "a"
; < f | -1,-1 | @12,2 |
(lettres (ssget)) ; => "a"
; < _c | -1,-1 | 5,1 |
(lettres (ssget)) ; => "fa"
; < w | -1,-1 | 11,1 |
(lettres (ssget)) ; => "a"
; < d |
(lettres (ssget)) ; => "f"
; < tout |
(lettres (ssget)) ; => "dcba"
; < p |
(lettres (ssget)) ; => "dcba"
; < tou | s | <5,50> | a | l |
(lettres (ssget)) ; => "dcaf"
; < <5,0> | <5,50> | n |
(lettres (ssget)) ; => "a"
; < _f | 5,-5 | 5,55 | |
(lettres (ssget)) ; => "fba"
; < fp | 90,-10 | 110,-10 | 100,20 | |
(lettres (ssget)) ; => "c"
; < xyz | d |
(lettres (ssget)) ; => "f"
; < <5,0>
(lettres (ssget "_:S")) ; => "a"
; < s | a | <5,0>
(lettres (ssget ":S")) ; => "a"
; < _c | -1,-1 | 5,1 |
(lettres (ssget "_:L")) ; => "a"
; < (entlast) |
(lettres (ssget)) ; => "f"
; < <5,0> | <5,50> | ^5,0> |
(lettres (ssget)) ; => "b"
; < tout |
(lettres (ssget '((0 . "LINE")))) ; => "ba"
; PICKADD: what is picked takes the place of the former, unless it is nothing; Shift joins and leaves.
(setvar "PICKADD" 0) ; => 0
; < d | <5,0> | <5,50> |
(lettres (ssget)) ; => "b"
; < <5,0> | <5,20> | <6,21> |
(lettres (ssget)) ; => "a"
; < <5,0> | ^5,50> | ^5,0> |
(lettres (ssget)) ; => "b"
; < <5,0> | d |
(lettres (ssget)) ; => "af"
(setvar "PICKADD" 2) ; => 2
; Changes that are not saved yet are seen.
(setq l (entget (car (nth 5 noms)))) (entmod (subst '(8 . "Haies") (assoc 8 l) l)) (entdel (car (nth 4 noms))) (x '((8 . "Haies"))) ; => "a"
