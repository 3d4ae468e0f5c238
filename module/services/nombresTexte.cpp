#include "services/nombresTexte.h"

#include <algorithm>
#include <cstdint>
#include <limits>

int entierDeTexte(const wchar_t* texte)
{
    while (*texte == L' ' || (*texte >= L'\t' && *texte <= L'\r'))
        ++texte;
    const bool negatif = *texte == L'-';
    if (negatif || *texte == L'+')
        ++texte;
    constexpr std::int64_t limite = std::int64_t{std::numeric_limits<int>::max()} + 1;
    std::int64_t valeur = 0;
    for (; *texte >= L'0' && *texte <= L'9'; ++texte)
        valeur = std::min(valeur * 10 + (*texte - L'0'), limite);
    return static_cast<int>(negatif ? -valeur : std::min(valeur, limite - 1));
}

CString texteEntier(int entier)
{
    CString texte;
    texte.Format(L"%d", entier);
    return texte;
}
