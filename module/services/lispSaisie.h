#pragma once

/// AutoLISP functions that ask the user.

/// (k_getpt prompt [base]): asks for a point with that prompt, a line stretched from the base point when there is one.
/// Gives the point; nil when the user gives none.
int lispKGetpt();
/// (wait_user): prints "\nAppuyez sur une touche pour continuer " and waits for one event of the user. Gives T, or nil
/// when the user cancels.
int lispWaitUser();
