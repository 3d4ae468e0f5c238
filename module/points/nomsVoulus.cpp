#include "points/nomsVoulus.h"

#include <algorithm>

#include "services/lettres.h"

#include "acutads.h"
#include "adscodes.h"

namespace {

constexpr std::wstring_view blancs = L" \t\n\v\f\r";

} // namespace

std::optional<int> numeroDuNom(std::wstring_view nom)
{
    constexpr std::size_t plusLong = 9; // digits of a point name, which always fit in 32 bits
    const std::wstring_view chiffres = sansBlancs(nom, blancs);
    if (chiffres.empty() || chiffres.size() > plusLong ||
        chiffres.find_first_not_of(L"0123456789") != std::wstring_view::npos)
        return std::nullopt;
    int numero = 0;
    for (const wchar_t chiffre : chiffres)
        numero = numero * 10 + (chiffre - L'0');
    return numero;
}

nomsVoulus::nomsVoulus(std::wstring_view texte)
{
    for (const std::wstring_view partie : parties(texte, L",")) {
        const std::size_t tiret = partie.find(L'-');
        const bool deux = tiret != std::wstring_view::npos;
        const auto premier = deux ? numeroDuNom(partie.substr(0, tiret)) : std::nullopt;
        const auto dernier = deux ? numeroDuNom(partie.substr(tiret + 1)) : std::nullopt;
        if (premier && dernier)
            plages.push_back({*premier, *dernier});
        else if (const std::wstring_view motif = sansBlancs(partie, blancs); !motif.empty())
            motifs.push_back(enMajuscules(std::wstring(motif)));
    }
}

bool nomsVoulus::contient(std::wstring_view nom) const
{
    if (!plages.empty())
        if (const auto numero = numeroDuNom(nom))
            if (std::any_of(plages.begin(), plages.end(),
                            [&](const plage& p) { return *numero >= p.premier && *numero <= p.dernier; }))
                return true;
    const std::wstring majuscules = enMajuscules(std::wstring(sansBlancs(nom, blancs)));
    return std::any_of(motifs.begin(), motifs.end(), [&](const std::wstring& motif) {
        return acutWcMatch(majuscules.c_str(), motif.c_str()) == RTNORM;
    });
}
