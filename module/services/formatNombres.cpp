#include "services/formatNombres.h"

#include <algorithm>
#include <cmath>

void formaterFixe(double valeur, int decimales, CString& texte)
{
    texte.Format(L"%.*f", std::clamp(decimales, 0, 30), valeur);
}

void formaterAbscisse(double valeur, int decimales, int mode, CString& texte)
{
    if (mode == 0)
        return formaterFixe(valeur, decimales, texte);
    const double absolue = std::abs(valeur);
    double milliers = std::trunc(absolue / 1000.0);
    if (milliers * 1000.0 > absolue) // the division rounded up
        milliers -= 1.0;
    CString reste;
    formaterFixe(absolue - 1000.0 * milliers, decimales, reste);
    // Thousands print as a real without decimals: they may exceed 32 bits.
    texte.Format(L"%s%.0f%s%s", mode == 1 ? L"PK " : L"", milliers, mode == 1 || mode == 2 ? L"+" : L" ",
                 reste.GetString());
}
