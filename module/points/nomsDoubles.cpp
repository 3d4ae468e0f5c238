#include "points/nomsDoubles.h"

#include <map>
#include <set>

#include "points/listePointsDuDessin.h"
#include "services/codages.h"
#include "services/lettres.h"

#include "acutads.h"

namespace {

std::wstring cleDuNom(const pointDuDessin& point)
{
    const std::wstring nom = depuisAnsi(point.getNomPoint());
    return enMinuscules(std::wstring(sansBlancs(std::wstring_view(nom), L" ")));
}

} // namespace

std::wstring phraseNomsDoubles(const listePointsDuDessin& table, int premier)
{
    std::map<std::wstring, int> porteurs;
    for (int i = premier; i < table.nbPoint(); ++i)
        porteurs.try_emplace(cleDuNom(*table.getData(i)), 0);
    if (porteurs.empty())
        return {};
    for (int i = 0; i < table.nbPoint(); ++i)
        if (const auto trouve = porteurs.find(cleDuNom(*table.getData(i))); trouve != porteurs.end())
            ++trouve->second;
    constexpr std::size_t cites = 5;
    std::set<std::wstring> doubles;
    std::wstring liste;
    for (int i = premier; i < table.nbPoint(); ++i) {
        const std::wstring cle = cleDuNom(*table.getData(i));
        if (cle.empty() || porteurs[cle] < 2 || !doubles.insert(cle).second || doubles.size() > cites)
            continue;
        liste += (liste.empty() ? L"« " : L", « ") + depuisAnsi(table.getData(i)->getNomPoint()) + L" »";
    }
    if (doubles.empty())
        return {};
    if (doubles.size() > cites)
        liste += L", etc";
    return doubles.size() == 1 ? L"Plusieurs points de la table portent le nom " + liste + L"."
                               : L"Chacun de ces " + std::to_wstring(doubles.size()) +
                                     L" noms est porté par plusieurs points de la table : " + liste + L".";
}

void direNomsDoubles(const listePointsDuDessin& table, int premier)
{
    if (const std::wstring phrase = phraseNomsDoubles(table, premier); !phrase.empty())
        acutPrintf(L"\n%ls", phrase.c_str());
}
