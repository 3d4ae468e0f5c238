; Arithmetic: integers of 32 bits, reals, what becomes what.
(+) ; => 0
(+ 1 2 3) ; => 6
(+ 1 2.5) ; => 3.5
(+ 2147483647 1) ; => 2.14748e+09
(- 5) ; => -5
(- 10 1 2) ; => 7
(- -2147483648) ; => 2.14748e+09
(* 2 3.0) ; => 6.0
(* 65536 65536) ; => 4.29497e+09
(/ 7 2) ; => 3
(/ -7 2) ; => -3
(/ 7 2.0) ; => 3.5
(/ 7 2 2.0) ; => 1.75
(/ 5 0) ; !> division par zéro
(/ 5.0 0) ; !> division par zéro
(rem 42 12) ; => 6
(rem -7 3) ; => -1
(rem 5.5 2) ; => 1.5
(rem 1 0) ; !> division par zéro
(1+ 5) ; => 6
(1- 0.5) ; => -0.5
(gcd 81 57) ; => 3
(abs -3) ; => 3
(abs -3.5) ; => 3.5
(min 2 1 3) ; => 1
(max 4 -144.0) ; => 4.0
(sqrt 4) ; => 2.0
(sqrt -1) ; !> résultat hors limites
(log 0) ; !> résultat hors limites
(exp 0) ; => 1.0
(exp 1000) ; !> résultat hors limites
(expt 2 10) ; => 1024
(expt 2 31) ; => 2.14748e+09
(expt 2.0 3) ; => 8.0
(expt 4 0.5) ; => 2.0
(fix 3.99) ; => 3
(fix -3.99) ; => -3
(fix 1e20) ; => 1.0e+20
(float 3) ; => 3.0
(* 4 (atan 1)) ; => 3.14159
(atan 1 -1) ; => 2.35619
(sin (/ pi 2)) ; => 1.0
(cos 0) ; => 1.0
(logand 7 15 3) ; => 3
(logior 1 2 4) ; => 7
(lsh 1 4) ; => 16
(lsh 16 -4) ; => 1
(lsh 1 31) ; => -2147483648
(lsh 1 32) ; => 0
(~ 3) ; => -4
(boole 6 12 5) ; => 9
(boole 1 12 5) ; => 4
(minusp -0.1) ; => T
(zerop 0.0) ; => T
(numberp "1") ; => nil
(+ 1 "a") ; !> argument de type incorrect : numberp: "a"
(1+) ; !> pas assez d'arguments
(1+ 1 2) ; !> trop d'arguments
; reading numbers
-0 ; => 0
+5 ; => 5
1. ; => 1.0
.5 ; => 0.5
1e3 ; => 1000.0
2147483648 ; => 2.14748e+09
-2147483648 ; => -2147483648
1.2.3 ; !> « 1.2.3 » n'est pas un nombre
