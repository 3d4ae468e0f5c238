#include "services/formatNombres.h"

#include <algorithm>
#include <cmath>

#include "services/nombreFixe.h"

std::wstring formaterFixe(double valeur, int decimales)
{
    const std::string texte = nombreFixe(valeur, std::clamp(decimales, 0, 30));
    return {texte.begin(), texte.end()};
}

std::wstring formaterAbscisse(double valeur, int decimales, int mode)
{
    if (mode == 0)
        return formaterFixe(valeur, decimales);
    const double absolue = std::abs(valeur);
    double milliers = std::trunc(absolue / 1000.0);
    if (milliers * 1000.0 > absolue) // the division rounded up
        milliers -= 1.0;
    // Thousands print as a real without decimals: they may exceed 32 bits.
    return (mode == 1 ? L"PK " : L"") + formaterFixe(milliers, 0) + (mode == 1 || mode == 2 ? L"+" : L" ") +
           formaterFixe(absolue - 1000.0 * milliers, decimales);
}
