#include "points/nomsVoulus.h"

#include <algorithm>

#include "acutads.h"
#include "adscodes.h"

std::optional<int> numeroDuNom(const CString& nom)
{
    constexpr int plusLong = 9; // digits of a point name, which always fit in 32 bits
    CString chiffres = nom;
    chiffres.Trim();
    if (chiffres.IsEmpty() || chiffres.GetLength() > plusLong ||
        chiffres.SpanIncluding(L"0123456789").GetLength() != chiffres.GetLength())
        return std::nullopt;
    int numero = 0;
    for (int i = 0; i < chiffres.GetLength(); ++i)
        numero = numero * 10 + (chiffres[i] - L'0');
    return numero;
}

nomsVoulus::nomsVoulus(const CString& texte)
{
    int debut = 0;
    for (CString partie = texte.Tokenize(L",", debut); debut >= 0; partie = texte.Tokenize(L",", debut)) {
        const int tiret = partie.Find(L'-');
        const auto premier = tiret > 0 ? numeroDuNom(partie.Left(tiret)) : std::nullopt;
        const auto dernier = tiret > 0 ? numeroDuNom(partie.Mid(tiret + 1)) : std::nullopt;
        if (premier && dernier)
            plages.push_back({*premier, *dernier});
        else if (!partie.Trim().IsEmpty())
            motifs.push_back(partie.MakeUpper());
    }
}

bool nomsVoulus::contient(const CString& nom) const
{
    if (!plages.empty())
        if (const auto numero = numeroDuNom(nom))
            if (std::any_of(plages.begin(), plages.end(),
                            [&](const plage& p) { return *numero >= p.premier && *numero <= p.dernier; }))
                return true;
    CString majuscules = nom;
    majuscules.Trim().MakeUpper();
    return std::any_of(motifs.begin(), motifs.end(),
                       [&](const CString& motif) { return acutWcMatch(majuscules, motif) == RTNORM; });
}
