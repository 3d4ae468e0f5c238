; Lists, dotted pairs, searching and sorting.
(list 1 "a" 2.0 nil) ; => (1 "a" 2.0 nil)
(list) ; => nil
'() ; => nil
'(a . b) ; => (A . B)
'(a b . c) ; => (A B . C)
'(a . (b c)) ; => (A B C)
'(1 .5) ; => (1 0.5)
'(a .) ; !> point mal placé
'(. a) ; !> point mal placé
'(a . b c) ; !> point mal placé
''a ; => (QUOTE A)
(cons 1 2) ; => (1 . 2)
(cons 1 '(2 3)) ; => (1 2 3)
(car nil) ; => nil
(car 5) ; !> argument de type incorrect : listp: 5
(cadr '(1 2 3)) ; => 2
(caddr '(1 2 3)) ; => 3
(cdar '((1 2) 3)) ; => (2)
(cadar '((1 2) 3)) ; => 2
(cdddr '(1 2 3)) ; => nil
(cddddr '(1 2 3 4 5)) ; => (5)
(caadr '(1 (2))) ; => 2
(cdr '(1 . 2)) ; => 2
(nth 1 '(a b c)) ; => B
(nth 9 '(a b c)) ; => nil
(last '(a b c)) ; => C
(length '(a b c)) ; => 3
(length '(a . b)) ; !> argument de type incorrect : listp: (A . B)
(length "abc") ; !> argument de type incorrect : listp: "abc"
(vl-list-length '(a . b)) ; => nil
(append '(1) '(2 3) nil '(4)) ; => (1 2 3 4)
(append) ; => nil
(append '(1) 2) ; => (1 . 2)
(reverse '(1 2 3)) ; => (3 2 1)
(member 2 '(1 2 3)) ; => (2 3)
(member '(1) '(0 (1) 2)) ; => ((1) 2)
(assoc 10 '((0 . "POINT") (10 1.0 2.0))) ; => (10 1.0 2.0)
(assoc "b" '(("a" . 1) ("b" . 2))) ; => ("b" . 2)
(assoc 99 '((1 . 2))) ; => nil
(subst 'x 'a '(a (b a) c)) ; => (X (B X) C)
(subst 9 '(2 3) '(1 2 3)) ; => (1 . 9)
(listp nil) ; => T
(listp '(1)) ; => T
(atom 'a) ; => T
(atom '(1)) ; => nil
(vl-consp nil) ; => nil
(null nil) ; => T
(vl-list* 1 2 '(3)) ; => (1 2 3)
(vl-position 'c '(a b c)) ; => 2
(vl-remove 1 '(1 2 1 3)) ; => (2 3)
(vl-remove-if 'numberp '(1 a 2 b)) ; => (A B)
(vl-remove-if-not 'numberp '(1 a 2 b)) ; => (1 2)
(vl-member-if '(lambda (x) (> x 2)) '(1 2 3 4)) ; => (3 4)
(vl-some '(lambda (x) (if (> x 2) x)) '(1 3 5)) ; => 3
(vl-every 'numberp '(1 2)) ; => T
(vl-every 'numberp '(1 a)) ; => nil
(vl-every 'numberp nil) ; => T
(vl-sort '(3 1 2) '<) ; => (1 2 3)
(vl-sort '((2 . a) (1 . b) (2 . c)) '(lambda (x y) (< (car x) (car y)))) ; => ((1 . B) (2 . A) (2 . C))
(vl-sort-i '("c" "a" "b") '<) ; => (1 2 0)
(length (vl-sort '(5 3 4 1 2 6) '(lambda (a b) t))) ; => 6
(acad_strlsort '("banane" "Abricot" "cerise")) ; => ("Abricot" "banane" "cerise")
(mapcar '+ '(1 2 3) '(10 20)) ; => (11 22)
(mapcar '(lambda (x) (* x x)) '(1 2 3)) ; => (1 4 9)
(apply '+ '(1 2 3)) ; => 6
(apply 'and '(t nil)) ; => nil
(equal '(1 (2.0 "a")) '(1 (2.0 "a"))) ; => T
(equal 1.0 1.001 0.01) ; => T
(equal '(1.0 2.0) '(1.0 2.1) 0.01) ; => nil
(eq 'a 'a) ; => T
(eq '(1) '(1)) ; => nil
(setq l '(1)) ; => (1)
(eq l l) ; => T
(= 1 1.0) ; => T
(= "a" "a" "b") ; => nil
(/= 1 2 1) ; => T
(< 1 2 3) ; => T
(< 1 3 2) ; => nil
(> "b" "a") ; => T
(<= 1 1 2) ; => T
(>= 1 "a") ; !> argument de type incorrect : numberp: "a"
