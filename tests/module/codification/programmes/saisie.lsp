(defun c13 (c) (cdr (assoc c (entget (entlast))))) ; => C13
(tpcdaddpt "1" '(0 0 1)) ; >> 
(tpcdaddpt "3" '(10 0 2)) ; >> 
(tpcdaddpt "5" '(10 10 3)) ; >> 
(tpcdaddpt "6" '(0 10)) ; >> 
; < 1 | 5 | 2
(c:topjndre) ; >> \nNumero de debut1\nNumero de fin5\nIncrement [1] :2
(c13 0) ; => "POLYLINE"
; < 6 | 4 |
(c:topjndre) ; >> \nNumero de debut6\nNumero de fin4\nIncrement [1] :\nPoint 4 absent de la table
(c13 0) ; => "LWPOLYLINE"
(getsegtype (entlast) 0) ; => ("LIGNE" (0.0 10.0 0.0) (10.0 10.0 0.0))
(getsegtype (entlast) 1) ; => nil
(getsegtype (entlast) -1) ; => nil
(getsegtype (ename_pt "1") 0) ; => nil
(getsegtype (entlast) "0") ; >> \nparametres incorrects.
; A half circle from (0 0) to (4 0), counter-clockwise: its bulge is 1; then back clockwise by a quarter.
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 1) (10 0 0) (42 . 1.0) (10 4 0) (42 . -0.41421356237))) ; >> 
(getsegtype (entlast) 0) ; => ("ARC" (0.0 0.0 0.0) (4.0 0.0 0.0) (2.0 0.0 0.0) 2.0 1.0)
(car (getsegtype (entlast) 1)) ; => "ARC"
(nth 3 (getsegtype (entlast) 1)) ; => (2.0 2.0 0.0)
(rtos (nth 4 (getsegtype (entlast) 1)) 2 6) ; => "2.828427"
; Drawn in a plane that looks down, where x runs west: seen from above the arc turns the other way.
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 0 0) (42 . 0.41421356237) (10 4 0) (210 0 0 -1))) ; >> 
(equal (nth 2 (getsegtype (entlast) 0)) '(-4.0 0.0 0.0) 1e-6) ; => T
(equal (nth 3 (getsegtype (entlast) 0)) '(-2.0 2.0 0.0) 1e-6) ; => T
(< (nth 5 (getsegtype (entlast) 0)) 0) ; => T
(progn (entmake '((0 . "POLYLINE") (70 . 9))) (entmake '((0 . "VERTEX") (10 0 0 1) (70 . 32))) (entmake '((0 . "VERTEX") (10 4 0 2) (70 . 32))) (entmake '((0 . "SEQEND"))) (getsegtype (entlast) 1)) ; => ("LIGNE" (4.0 0.0 2.0) (0.0 0.0 1.0))
(getsegtype (entlast) 2) ; => nil
; < 1 | 2 | 1
(c:topjndre) ; >> \nNumero de debut1\nNumero de fin2\nIncrement [1] :1\nPoint 2 absent de la table\nIl faut au moins deux points
; The numbers are those of the start, by the step: 8 6 4 2 meet one point.
; < 8 | 1 | 2
(c:topjndre) ; >> \nNumero de debut8\nNumero de fin1\nIncrement [1] :2\nPoint 8 absent de la table\nPoints 4 à 2 absents de la table\nIl faut au moins deux points
; < 1 | 999999999 | 32767
(c:topjndre) ; >> \nNumero de debut1\nNumero de fin999999999\nIncrement [1] :32767\nPoints 32768 à 999983307 absents de la table\nIl faut au moins deux points
; < 5 | 999999999 | 1
(c:topjndre) ; >> \nNumero de debut5\nNumero de fin999999999\nIncrement [1] :1\nPoints 7 à 999999999 absents de la table
; < @3,4
(k_getpt "\nCentre : " '(0 0)) ; => (3.0 4.0 0.0)
; <
(k_getpt "\nCentre : ") ; => nil
(k_getpt) ; >> \nparametres incorrects.
(k_getpt "a" "b") ; >> \nparametres incorrects.
(wait_user 1) ; >> \nparametres incorrects.
; Taken apart: the lines of the cross, and the two visible texts that are not empty.
(setq avant (entlast)) ; >> 
; < -1,-1 | 1,1 |
(c:dissocblock) ; =>
(ename_pt "1") ; => nil
(c13 0) ; => "TEXT"
(c13 1) ; => "1.00"
(c13 8) ; => "_ Altitudes Points"
(progn (setq n 0 e avant) (while (setq e (entnext e)) (setq n (1+ n))) n) ; => 4
(reg_pts) ; => 4
(type (ename_pt "1")) ; => ENAME
