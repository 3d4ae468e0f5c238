#include "services/entierDeTexte.h"

#include <algorithm>
#include <cstdint>
#include <limits>

int entierDeTexte(std::wstring_view texte)
{
    const auto* c = texte.begin();
    while (c != texte.end() && (*c == L' ' || (*c >= L'\t' && *c <= L'\r')))
        ++c;
    const bool negatif = c != texte.end() && *c == L'-';
    if (negatif || (c != texte.end() && *c == L'+'))
        ++c;
    constexpr std::int64_t limite = std::int64_t{std::numeric_limits<int>::max()} + 1;
    std::int64_t valeur = 0;
    for (; c != texte.end() && *c >= L'0' && *c <= L'9'; ++c)
        valeur = std::min(valeur * 10 + (*c - L'0'), limite);
    return static_cast<int>(negatif ? -valeur : std::min(valeur, limite - 1));
}
