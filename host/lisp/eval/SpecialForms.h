#pragma once

#include <span>

#include "lisp/eval/LispBuiltin.h"

/// quote, setq, if, while, defun... : the forms that evaluate their parts themselves.
std::span<const LispSpecialForm> specialForms();
