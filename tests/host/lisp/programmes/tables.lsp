; Tables, dictionaries and system variables of a drawing.
(setq l (tblsearch "LAYER" "0")) (list (assoc 0 l) (assoc 2 l) (assoc 5 l)) ; => ((0 . "LAYER") (2 . "0") nil)
(tblsearch "LAYER" "PAS_LA") ; => nil
(tblsearch "VUES" "0") ; !> argument de type incorrect : nom de table: "VUES"
(cdr (assoc 2 (tblnext "layer" t))) ; => "0"
(while (tblnext "LAYER")) (tblnext "LAYER") ; => nil
(cdr (assoc 2 (entget (tblobjname "LAYER" "0")))) ; => "0"
(entmake '((0 . "POINT") (10 0 0 0))) (setq l (tblsearch "BLOCK" "*Model_Space")) (eq (cdr (assoc -2 l)) (entnext)) ; => T
(cdr (assoc 0 (entget (namedobjdict)))) ; => "DICTIONARY"
(dictsearch (namedobjdict) "PAS_LA") ; => nil
(equal (dictnext (namedobjdict) t) (entget (cdr (assoc -1 (dictnext (namedobjdict) t))))) ; => T
(setvar "OSMODE" 33) ; => 33
(getvar "osmode") ; => 33
(setvar "LTSCALE" 2) ; => 2
(getvar "LTSCALE") ; => 2.0
(setvar "LASTPOINT" '(1 2 3)) ; => (1 2 3)
(getvar "LASTPOINT") ; => (1.0 2.0 3.0)
(getvar "PAS_LA") ; => nil
(setvar "OSMODE" "a") ; !> variable système refusée : OSMODE
(setvar "LUPREC" 2) (rtos 1.23456) ; => "1.23"
