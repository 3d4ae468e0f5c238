#include "exchange/phrasesImport.h"

std::vector<std::wstring> phrasesImport(std::wstring_view fichier, const pointsLus& lus, const bilanAjout& bilan)
{
    std::vector<std::wstring> phrases{std::wstring(fichier) + L" : " + std::to_wstring(bilan.points()) +
                                      L" point(s) lu(s), " + std::to_wstring(lus.ecartees) + L" ligne(s) écartée(s)."};
    const auto dire = [&phrases](int nombre, const wchar_t* suite) {
        if (nombre > 0)
            phrases.push_back(std::to_wstring(nombre) + suite);
    };
    dire(bilan.renumerotes, L" point(s) renuméroté(s) après le plus grand numéro.");
    dire(bilan.remplaces, L" point(s) de la table remplacé(s).");
    dire(bilan.laisses, L" point(s) laissé(s) de côté, leur nom existant déjà.");
    dire(bilan.verrouilles, L" point(s) de la table non remplacé(s) : leur symbole est sur un calque verrouillé.");
    for (std::wstring& phrase : phrasesNoms(bilan))
        phrases.push_back(std::move(phrase));
    dire(bilan.observes, L" observation(s) : « Placer » les écrira sur les symboles.");
    for (std::wstring& phrase : phrasesProblemes(fichier, lus))
        phrases.push_back(std::move(phrase));
    return phrases;
}
