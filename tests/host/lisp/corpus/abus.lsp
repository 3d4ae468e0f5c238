((((((((((((quote a)))))))))))) (setq l nil) (repeat 99 (setq l (cons l l))) (defun g () (g)) (g)
