#pragma once

#include <span>

#include "lisp/eval/LispBuiltin.h"

class LispContext;

/// The functions that work on the current drawing or speak to the command line.
std::span<const LispBuiltin> hostBuiltins();         // getvar setvar command
std::span<const LispBuiltin> entityBuiltins();       // entget entnext entdel ...
std::span<const LispBuiltin> entityMakingBuiltins(); // entmake entmakex entmod
std::span<const LispBuiltin> tableBuiltins();        // tblsearch tblnext dictsearch ...
std::span<const LispBuiltin> inputBuiltins();        // initget getpoint getstring entsel ...
std::span<const LispBuiltin> selectionBuiltins();    // ssget ssadd ssname ...
std::span<const LispBuiltin> screenBuiltins();       // grdraw redraw trans osnap ...

/// All of them.
void defineDrawingBuiltins(LispContext& context);
