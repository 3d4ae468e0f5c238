; Functions that ask. What the user types stands on the line above, between bars.
; < 1,2
(getpoint) ; => (1.0 2.0 0.0)
; < <3,4>
(getpoint "Point : ") ; => (3.0 4.0 0.0)
; < @1,1
(getpoint '(0 0) "Point : ") ; => (4.0 5.0 0.0)
; <
(getpoint) ; => nil
; < <Esc>
(getpoint) ; !> Fonction annulée
; < <Esc>
(vl-catch-all-error-message (vl-catch-all-apply 'getpoint '("Point : "))) ; => "Fonction annulée"
; < 7,7
(getcorner '(0 0 0) "Coin : ") ; => (7.0 7.0 0.0)
; < 12.5
(getdist "Distance : ") ; => 12.5
; < 0,0 | 3,4
(getdist) ; => 5.0
; < 100g
(rtos (getangle) 2 6) ; => "1.570796"
(progn (setvar "AUNITS" 0) (setvar "ANGBASE" (/ pi 2)) (setvar "ANGDIR" 1)) ; => 1
; < 90
(rtos (getangle) 2 6) ; => "4.712389"
; < 90
(getorient) ; => 0.0
; < 0,0 | 0,5
(getangle) ; => 0.0
; < 0,0 | 0,5
(rtos (getorient) 2 6) ; => "1.570796"
(progn (setvar "ANGBASE" 0.0) (setvar "ANGDIR" 0)) ; => 0
; < abc | 2.5
(getreal "Réel : ") ; => 2.5
; < 7
(getint) ; => 7
; < Borne
(getstring) ; => "Borne"
; < Borne 12
(getstring T "Nom : ") ; => "Borne 12"
; < r
(progn (initget "Origine Rotation") (getpoint)) ; => "Rotation"
; < | 5
(progn (initget 1) (getint)) ; => 5
; < -1 | 0 | 3
(progn (initget 6) (getint)) ; => 3
; < o
(progn (initget 1 "Oui Non _ Yes No") (getkword "Choix : ")) ; => "Yes"
; <
(progn (initget "Oui Non") (getkword)) ; => nil
; < n'importe quoi
(progn (initget 128) (getpoint)) ; => "n'importe quoi"
; < (list 1 2)
(getpoint) ; => (1.0 2.0 0.0)
(trans '(1 2 3) 0 1) ; => (1.0 2.0 3.0)
(trans '(1 2 3) 0 '(0 0 -1)) ; => (-1.0 2.0 -3.0)
(trans '(1 2 3) '(0 0 -1) 0) ; => (-1.0 2.0 -3.0)
(trans '(1 2 3) 0 9) ; => nil
(progn (entmake '((0 . "LINE") (10 0 0 0) (11 10 0 0))) (osnap '(5.1 0.1) "_mid")) ; => (5.0 0.0 0.0)
(osnap '(50 50) "_end") ; => nil
(grdraw '(0 0) '(1 1) 1) ; => nil
(grdraw '(0 0) '(1 1) 1 1) ; => nil
(grvecs '(1 (0 0) (1 1) -2 (1 1) (2 2))) ; => nil
(grtext -1 "Bonjour") ; => "Bonjour"
(grtext) ; => nil
(redraw) ; => nil
(redraw (entlast) 3) ; => nil
; < <3,4>
(grread T) ; => (3 (3.0 4.0 0.0))
; < ~3,4
(grread T) ; => (5 (3.0 4.0 0.0))
; < é
(list (grread) (grread)) ; => ((2 233) (2 13))
;; point filters
; < .xy | 1,2,3 | 7
(getpoint) ; => (1.0 2.0 7.0)
; < .x | 1,2 | 5,6
(getpoint) ; => (1.0 6.0 0.0)
; < .YZ | 1,2,3 | abc | 8,9
(getpoint "Point : ") ; => (8.0 2.0 3.0)
; < .xy | 1,2 | <Esc>
(getpoint) ; !> Fonction annulée
; < .xx | 1,1
(getpoint) ; => (1.0 1.0 0.0)
(vl-load-com) ; => nil
(alert "Fini") ; => nil
(progn (setvar "DIMZIN" 8) (list (rtos 2.5 2 3) (rtos 3.0 2 2) (rtos 100.0 2 0))) ; => ("2.5" "3" "100")
(progn (setvar "DIMZIN" 12) (list (rtos 0.5 2 3) (rtos -0.25 2 4) (rtos 0 2 2))) ; => (".5" "-.25" "0")
(progn (setvar "DIMZIN" 0) (rtos 2.5 2 3)) ; => "2.500"
(and (< 2460000 (getvar "DATE") 2600000) (< 20230000 (getvar "CDATE") 21000000)) ; => T
