; Special forms, dynamic scope, errors.
(setq a 1 b (+ a 1)) ; => 2
a ; => 1
A ; => 1
inconnu ; => nil
(setq a) ; !> pas assez d'arguments
(setq t 5) ; !> symbole protégé : T
(setq "a" 5) ; !> argument de type incorrect : symbolp: "a"
(if nil 1) ; => nil
(if 0 1 2) ; => 1
(if nil 1 2 3) ; !> trop d'arguments
(cond ((= 1 2) 'non) ((= 1 1) 'un 'deux) (t 'reste)) ; => DEUX
(cond (nil 1) (5)) ; => 5
(cond) ; => nil
(cond 5) ; !> syntaxe incorrecte
(and 1 nil (/ 1 0)) ; => nil
(and) ; => T
(or nil 2 (/ 1 0)) ; => T
(progn 1 2 3) ; => 3
(progn (setq i 0) (while (< i 5) (setq i (1+ i)))) ; => 5
(repeat 3 (setq i (1+ i))) ; => 8
(repeat 0 1) ; => nil
(repeat 1.5 1) ; !> argument de type incorrect : fixnump: 1.5
(progn (setq somme 0 x 7) (foreach x '(1 2 3) (setq somme (+ somme x)))) ; => 6
x ; => 7
(foreach x 5 x) ; !> argument de type incorrect : listp: 5
(defun carre (x) (* x x)) ; => CARRE
(carre 5) ; => 25
(carre) ; !> pas assez d'arguments
(carre 1 2) ; !> trop d'arguments
((lambda (x y) (- x y)) 5 3) ; => 2
(eval '(+ 1 2)) ; => 3
(eval (list 'carre 4)) ; => 16
(set 'z 9) ; => 9
z ; => 9
; locals behind the slash, seen by what is called
(defun dehors (/ cache) (setq cache 1) (dedans)) ; => DEHORS
(defun dedans () (setq cache (1+ cache))) ; => DEDANS
(setq cache 100) ; => 100
(dehors) ; => 2
cache ; => 100
(defun rate (n / cache) (setq cache 5) (/ n 0)) ; => RATE
(rate 1) ; !> division par zéro
cache ; => 100
(defun f (1) 2) ; !> liste de paramètres incorrecte : (1)
(defun fact (n) (if (< n 2) 1 (* n (fact (1- n))))) ; => FACT
(fact 10) ; => 3628800
(defun sans-corps ()) ; => SANS-CORPS
(sans-corps) ; => nil
(pas-la 1 2) ; !> aucune définition de fonction : PAS-LA
("texte") ; !> fonction incorrecte : "texte"
(5 5) ; !> fonction incorrecte : 5
(a 5) ; !> fonction incorrecte : 1
(mapcar 'pas-la '(1)) ; !> aucune définition de fonction : PAS-LA
(setq plus +) ; => #<SUBR +>
(plus 1 2) ; => 3
(setq ma-fonction '(lambda (x) (1+ x))) ; => (LAMBDA (X) (1+ X))
(ma-fonction 5) ; => 6
(type carre) ; => USUBR
((function carre) 3) ; => 9
; errors caught
(vl-catch-all-error-p (setq e (vl-catch-all-apply '/ '(1 0)))) ; => T
(vl-catch-all-error-message e) ; => "division par zéro"
(vl-catch-all-apply '+ '(1 2)) ; => 3
(vl-catch-all-error-message (vl-catch-all-apply 'exit)) ; => "quitter / sortir abandon"
(vl-catch-all-error-message 5) ; !> argument de type incorrect : vl-catch-all-error-p: 5
(exit) ; !> quitter / sortir abandon
; the user's own *error* sees the locals of the place, and nothing else is printed
(defun *error* (msg) (princ (strcat "<" msg " " (itoa lieu) ">"))) ; => *ERROR*
(defun fautive (lieu) (/ lieu 0)) ; => FAUTIVE
(fautive 7) ; >> <division par zéro 7>
(vl-catch-all-error-p (vl-catch-all-apply 'fautive '(7))) ; => T
(defun *error* (msg) (/ 2 0)) ; => *ERROR*
(fautive 7) ; !> division par zéro
(setq *error* nil) ; => nil
; what never ends is ended
(defun infini (n) (1+ (infini n))) ; => INFINI
(infini 1) ; !> récursivité trop profonde
(vl-catch-all-error-message (vl-catch-all-apply 'infini '(1))) ; => "récursivité trop profonde"
(while t) ; !> évaluation interrompue : le temps accordé est écoulé
(repeat 2147483647) ; !> évaluation interrompue : le temps accordé est écoulé
(vl-catch-all-apply '(lambda () (while t))) ; !> évaluation interrompue : le temps accordé est écoulé
(progn (setq s "0123456789") (repeat 30 (setq s (strcat s s)))) ; !> texte trop long
(progn (setq l nil) (repeat 40 (setq l (cons l l))) (strlen (vl-prin1-to-string l))) ; !> texte trop long
; a long list and a deep one go without a trace
(progn (setq l nil) (repeat 300000 (setq l (cons 1 l))) (length l)) ; => 300000
(progn (setq l nil) (repeat 300000 (setq l (list l))) (atom l)) ; => nil
(setq l nil) ; => nil
