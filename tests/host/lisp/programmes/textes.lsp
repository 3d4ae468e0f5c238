; Texts, conversions, symbols.
"a\tb\\c\"d" ; => "a\tb\\c\"d"
(ascii "\e") ; => 27
(ascii "\101") ; => 65
(ascii "\U+00E9") ; => 233
"non fermé ; !> guillemet fermant manquant
(strcat "a" "b" "") ; => "ab"
(strcat) ; => ""
(strcat "a" 1) ; !> argument de type incorrect : stringp: 1
(strlen "abc" "de") ; => 5
(strlen "été") ; => 3
(substr "abcdef" 2 3) ; => "bcd"
(substr "abc" 2) ; => "bc"
(substr "abc" 9) ; => ""
(substr "abc" 0) ; !> argument de type incorrect : fixnump > 0: 0
(strcase "Été") ; => "ÉTÉ"
(strcase "ÉTÉ" t) ; => "été"
(chr 65) ; => "A"
(chr 0) ; !> argument de type incorrect : code de caractère: 0
(ascii "") ; => 0
(atoi "12abc") ; => 12
(atoi "3.9") ; => 3
(atoi "abc") ; => 0
(atof "7.5m") ; => 7.5
(atof "-1e2") ; => -100.0
(atof "x") ; => 0.0
(itoa -7) ; => "-7"
(itoa 1.5) ; !> argument de type incorrect : fixnump: 1.5
(rtos 12.3456 2 2) ; => "12.35"
(rtos -0.5 2 0) ; => "-0"
(rtos 17.5 1 4) ; => "1.7500E+01"
(rtos 17.5 3 2) ; => "1'-5.50\""
(rtos 17.5 4 2) ; => "1'-5 1/2\""
(rtos 17.5 5 2) ; => "17 1/2"
(rtos 0.25 5 4) ; => "1/4"
(rtos 11.99 4 1) ; => "1'-0\""
(rtos 1.5 9 2) ; !> résultat hors limites
(angtos 0.785398163397448 0 4) ; => "45.0000"
(angtos -1.5707963267948966 0 0) ; => "270"
(angtos 0.785398163397448 1 4) ; => "45d0'0\""
(angtos 0.785398163397448 2 2) ; => "50.00g"
(angtos 0.785398163397448 3 4) ; => "0.7854r"
(angtos 0.785398163397448 4 1) ; => "N 45d0' E"
(angtos 2.0943951023931953 4 0) ; => "N 30d W"
(angtos 0 4 0) ; => "E"
(distof "12.5") ; => 12.5
(distof "1'-6\"" 4) ; => 18.0
(distof "17 1/2" 5) ; => 17.5
(distof "-1'-6.5\"" 3) ; => -18.5
(distof "abc" 2) ; => nil
(angtof "45" 0) ; => 0.785398
(angtof "90d30'0\"" 1) ; => 1.57952
(angtof "50g") ; => 0.785398
(angtof "x") ; => nil
(wcmatch "S12" "S#*") ; => T
(wcmatch "S12" "A*,~S*") ; => nil
(read "(a b)") ; => (A B)
(read "") ; => nil
(read "(a") ; !> parenthèse fermante manquante
(vl-string-search "de" "abcdedef") ; => 3
(vl-string-search "de" "abcdedef" 4) ; => 5
(vl-string-search "x" "abc") ; => nil
(vl-string-position 98 "abcb") ; => 1
(vl-string-position 98 "abcb" nil t) ; => 3
(vl-string-subst "X" "b" "abab") ; => "aXab"
(vl-string-translate "abc" "xy" "aabbcc") ; => "xxyyyy"
(vl-string-trim " " "  a b  ") ; => "a b"
(vl-string-left-trim " " "  a ") ; => "a "
(vl-string-right-trim " " "  a ") ; => "  a"
(vl-string-right-trim " " "") ; => ""
(vl-string-trim "a" "aaa") ; => ""
(vl-string-elt "abc" 1) ; => 98
(vl-string->list "AB") ; => (65 66)
(vl-list->string '(65 66)) ; => "AB"
(vl-prin1-to-string '("a" . 1.5)) ; => "(\"a\" . 1.5)"
(vl-princ-to-string '("a" . 1.5)) ; => "(a . 1.5)"
(vl-symbol-name 'abc) ; => "ABC"
(type 1) ; => INT
(type 1.0) ; => REAL
(type "a") ; => STR
(type 'a) ; => SYM
(type '(1)) ; => LIST
(type nil) ; => nil
(type car) ; => SUBR
(boundp 'car) ; => T
(boundp 'rien) ; => nil
; geometry
(distance '(0 0) '(3 4)) ; => 5.0
(distance '(0 0 0) '(2 3 6)) ; => 7.0
(distance '(0 0) '(3 4 100)) ; => 5.0
(distance '(0) '(1 1)) ; !> point incorrect : (0)
(angle '(0 0) '(0 -1)) ; => 4.71239
(polar '(1 1) 0 2) ; => (3.0 1.0)
(polar '(1 1 5) (/ pi 2) 2) ; => (1.0 3.0 5.0)
(inters '(0 0) '(2 2) '(0 2) '(2 0)) ; => (1.0 1.0)
(inters '(0 0) '(1 1) '(0 4) '(4 0)) ; => nil
(inters '(0 0) '(1 1) '(0 4) '(4 0) nil) ; => (2.0 2.0)
; names of files
(mapcar 'vl-filename-base '("c:\\leve\\plan.v2.dxf" "/tmp/a" "seul.txt" "")) ; => ("plan.v2" "a" "seul" "")
(mapcar 'vl-filename-directory '("c:\\leve\\plan.dxf" "c:\\plan.dxf" "leve/plan.dxf" "plan.dxf")) ; => ("c:\\leve" "c:\\" "leve" "")
(mapcar 'vl-filename-extension '("plan.v2.dxf" "c:\\a.b\\plan")) ; => (".dxf" nil)
(list (vl-file-size "pas-la.txt") (vl-file-delete "pas-la.txt") (vl-file-directory-p ".") (vl-file-rename "pas-la" "ici")) ; => (nil nil T nil)
(vl-directory-files "pas-la" "*.*" 1) ; => nil
; output
(princ "a\"b") ; >> a"b
(prin1 "a\"b") ; >> "a\"b"
(princ) ; =>
(progn (prompt "x") (terpri) (print 'y) (princ)) ; >> x\n\nY 
(write-line "fin") ; >> fin\n
; comments
(+ 1 ;| here |; 2) ; => 3
) ; !> parenthèse fermante en trop
(car ; !> parenthèse fermante manquante
