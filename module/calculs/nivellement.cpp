#include "calculs/nivellement.h"

#include "services/grandeur.h"

namespace {

grandeur poidsDe(int mode, double longueur)
{
    switch (mode) {
    case nivellementSimple:
        return 1.0;
    case nivellementDistance:
        return longueur;
    case nivellementRacine:
        return sqrt(grandeur(longueur));
    default:
        return 0.0;
    }
}

} // namespace

const wchar_t* motNivellement(int mode)
{
    static constexpr const wchar_t* mots[] = {L"aucun", L"simple", L"distance", L"racine"};
    return mots[mode >= nivellementAucun && mode <= nivellementRacine ? mode : nivellementAucun];
}

int nivellementDe(wchar_t lettre)
{
    switch (lettre) {
    case L'S':
    case L's':
        return nivellementSimple;
    case L'D':
    case L'd':
        return nivellementDistance;
    case L'R':
    case L'r':
        return nivellementRacine;
    default:
        return nivellementAucun;
    }
}

nivellementCompense compenserNivellement(int mode, double zDepart, double deniveleeConnue,
                                         const std::vector<double>& dz, const std::vector<double>& distances)
{
    grandeur sommeDz, sommePoids;
    for (std::size_t i = 0; i < dz.size(); ++i) {
        sommeDz += dz[i];
        sommePoids += poidsDe(mode, distances[i]);
    }
    const grandeur fermeture = sommeDz - deniveleeConnue;
    const bool corriger = mode >= nivellementSimple && mode <= nivellementRacine;

    nivellementCompense resultat;
    resultat.denivelees.reserve(dz.size());
    grandeur z = zDepart, sommeCorrections, sommeDzCorriges;
    for (std::size_t i = 0; i < dz.size(); ++i) {
        const grandeur poids = poidsDe(mode, distances[i]);
        const grandeur correction = corriger ? poids * fermeture / sommePoids : grandeur(0.0);
        const grandeur corrige = grandeur(dz[i]) - correction;
        z += corrige;
        sommeCorrections += correction;
        sommeDzCorriges += corrige;
        resultat.denivelees.push_back({poids.valeur(), correction.valeur(), corrige.valeur(), z.valeur()});
    }
    resultat.fermeture = fermeture.valeur();
    resultat.sommeDz = sommeDz.valeur();
    resultat.sommePoids = sommePoids.valeur();
    resultat.sommeCorrections = sommeCorrections.valeur();
    resultat.sommeDzCorriges = sommeDzCorriges.valeur();
    return resultat;
}
