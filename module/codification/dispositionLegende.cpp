#include "codification/dispositionLegende.h"

#include <algorithm>
#include <cmath>

namespace {

/// Scales a block so that its larger side has the size wanted; one that shows nothing, or whose size is no number that
/// a drawing could keep, stays as it is.
double echelleDe(const ligneLegende& ligne, double taille)
{
    const double echelle = taille / std::max(ligne.largeur, ligne.hauteur);
    return !ligne.trait && std::isnormal(echelle) ? echelle : 1.0;
}

} // namespace

dispositionLegende disposerLegende(const std::vector<ligneLegende>& lignes, const parametresLegende& parametres)
{
    constexpr double aere = 1.05;
    const double accents = 0.6 * parametres.tailleTextes; // over capitals, and below the line
    double gauche = 0.0;                                  // width of what stands left of the texts
    for (const ligneLegende& ligne : lignes)
        gauche = std::max(gauche, ligne.trait ? parametres.longueurTrait
                                              : std::min(ligne.largeur * echelleDe(ligne, parametres.tailleBlocs),
                                                         parametres.tailleBlocs));
    dispositionLegende disposition;
    disposition.hauteurTitre = parametres.tailleTextes * 1.5;
    disposition.titre = {0.0, -disposition.hauteurTitre};
    const double colonneTextes = gauche + parametres.tailleTextes;
    double y = disposition.titre.y - parametres.tailleTextes, precedente = 0.0; // y: below what is above
    for (const ligneLegende& ligne : lignes) {
        const double echelle = echelleDe(ligne, parametres.tailleBlocs);
        const double hauteur = std::max(std::min(ligne.hauteur * echelle, parametres.tailleBlocs),
                                        std::max(ligne.hauteurTexte, parametres.tailleTextes) + accents);
        const bool premiere = disposition.lignes.empty();
        y -= premiere ? hauteur / 2.0 : std::max(parametres.distanceLignes, aere * (precedente + hauteur) / 2.0);
        precedente = hauteur;
        disposition.lignes.push_back({{gauche / 2.0, y}, echelle, {colonneTextes, y}});
    }
    return disposition;
}
