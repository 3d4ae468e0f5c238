#pragma once

#include <span>

/// One function that the module adds to AutoLISP. It reads its arguments from the host and sets its result there; the
/// status it returns does not count.
struct fonctionLisp {
    const wchar_t* nom;
    int (*executer)();
};

/// The functions, in the order of their codes.
std::span<const fonctionLisp> tableFonctionsLisp();

/// Defines the functions in the current drawing, up to the first that the host refuses. @return RTNORM or RTERROR.
int definirFonctionsLisp();
/// Undefines them all, whatever the host answers. @return RTNORM.
int oublierFonctionsLisp();
/// Calls the function that AutoLISP asked for. Its value is void unless it sets one; an unknown code does nothing.
void appelerFonctionLisp();
