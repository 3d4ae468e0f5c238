#include "implantation/pointsAxe.h"

namespace {

std::vector<double> suivantErreur(const axe& a, double erreur)
{
    std::vector<double> longueurs{0.0};
    for (std::size_t i = 0; i < a.elements().size(); ++i) {
        const double debut = a.debutElement(i), cordes = nombreCordes(a.elements()[i], erreur);
        for (double k = 1.0; k < cordes; k += 1.0)
            longueurs.push_back(debut + a.elements()[i].longueur * (k / cordes));
        longueurs.push_back(a.debutElement(i + 1));
    }
    return longueurs;
}

double nombreDe(const axe& a, const choixAxe& choix)
{
    if (!choix.suivantErreur)
        return a.longueur() / choix.valeur;
    double nombre = 0.0;
    for (const elementAxe& e : a.elements())
        nombre += nombreCordes(e, choix.valeur);
    return nombre;
}

} // namespace

std::vector<double> longueursAImplanter(const axe& a, const choixAxe& choix, std::size_t limite)
{
    if (a.vide() || !(choix.valeur > 0.0) || !(nombreDe(a, choix) < static_cast<double>(limite)))
        return {};
    std::vector<double> longueurs = choix.suivantErreur ? suivantErreur(a, choix.valeur) : a.jalons(choix.valeur);
    if (a.ferme() && longueurs.size() > 1)
        longueurs.pop_back();
    return longueurs;
}
