; What the functions of points and texts make of their arguments.
(maxnum) ; => 1
(add_pt "12" '(1.5 2.5 3.5) 7) ; => T
(ADD_PT "7B" '(1.5 2.5)) ; => T
(add_pt "A" (list 1 2.5) 9999) ; => T
(add_pt "B" (list 1 2.5) 70000) ; >> \nparametres incorrects.
(maxnum) ; => 13
(maxnum 1) ; >> \nparametres incorrects.
(null (maxnum 1)) ; => T
(add_pt) ; >> \nparametres incorrects.
(add_pt "A") ; >> \nparametres incorrects.
(add_pt 1 '(1.5 2.5 3.5)) ; >> \nparametres incorrects.
(add_pt "A" "1,2") ; >> \nparametres incorrects.
(add_pt "A" '(1.0)) ; >> \nparametres incorrects.
(add_pt "A" '(1.0 1.0 1.0 1.0)) ; >> \nparametres incorrects.
(add_pt "A" '("1" "2")) ; >> \nparametres incorrects.
(add_pt "A" '(1.5 2.5 3.5) 1.5) ; >> \nparametres incorrects.
(add_pt "A" '(1.5 2.5 3.5) 1 nil) ; >> \nparametres incorrects.
(null (add_pt)) ; => T
(add_pt "A" (list (atof "1e999") 2 3) 1) ; >> \nparametres incorrects.
(tpcdaddpt "A" (list (atof "-1e999") 2.0)) ; >> \nparametres incorrects.
(analyse "a, b\tc\n\n,d") ; => ("a" "b" "c" "d")
(analyse "abc") ; => ("abc")
(analyse " ,\t\n") ; => nil
(analyse "") ; => nil
(analyse 1.0) ; >> \nparametres incorrects.
(analyse) ; >> \nparametres incorrects.
(velatext "été n°5") ; => "ÉTÉ N°5"
(VELATEXT "a" "b") ; => ("A" "B")
(VELATEXT "a" 1) ; >> \nparametres incorrects.
(vldelfile "/nulle/part.txt") ; => nil
(vldelfile) ; >> \nparametres incorrects.
; not there yet: no value
(c:projpoly) ; =>
