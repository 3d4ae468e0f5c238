#include "tools/rapportAxe.h"

#include <numbers>

#include "services/formatNombres.h"
#include "services/gisementPlan.h"
#include "tools/rapportOutils.h"

namespace {

std::wstring rayon(double courbure)
{
    return courbure == 0.0 ? std::wstring(L"infini") : formaterFixe(1.0 / std::abs(courbure), 3);
}

std::wstring rayons(const elementAxe& e)
{
    if (e.estDroit())
        return {};
    return e.estArc() ? rayon(e.courbureDebut) : rayon(e.courbureDebut) + L" puis " + rayon(e.courbureFin);
}

void ligneDuLieu(htmlTable& table, const elementAxe& e, double s)
{
    constexpr double grades = 200.0 / std::numbers::pi;
    const point2 p = e.pointA(s), u = e.directionA(s);
    rapportOutils::nombre(table, gisementPlan(0.0, 0.0, u.x, u.y) * grades, 4);
    rapportOutils::nombre(table, p.x, 3);
    rapportOutils::nombre(table, p.y, 3);
}

void ecrireEquations(rapportOutils& rapport, const axe& ligne, const abscisses& numerotation)
{
    const std::vector<abscisses::saut> sauts = numerotation.sauts();
    if (sauts.empty())
        return;
    rapport.sousTitre(L"Équations d'abscisses");
    htmlTable table = rapport.tableau({L"Arrière", L"Avant", L"Longueur depuis le début", L"X", L"Y"});
    for (const abscisses::saut& saut : sauts) {
        const point2 p = ligne.pointA(saut.longueur);
        table.beginRow();
        rapportOutils::nombreEcrit(table, formaterAbscisse(saut.equation.arriere, 3, 2));
        rapportOutils::nombreEcrit(table, formaterAbscisse(saut.equation.avant, 3, 2));
        for (const double valeur : {saut.longueur, p.x, p.y})
            rapportOutils::nombre(table, valeur, 3);
    }
    rapport.ajouter(table);
}

} // namespace

std::wstring nomElement(const elementAxe& e)
{
    if (e.estDroit())
        return L"Droite";
    const std::wstring cote = e.courbureDebut + e.courbureFin > 0.0 ? L" à gauche" : L" à droite";
    return (e.estArc() ? L"Arc" : L"Clothoïde") + cote;
}

double parametreClothoide(const elementAxe& e)
{
    return std::sqrt(e.longueur / std::abs(e.courbureFin - e.courbureDebut));
}

htmlDocument rapportAxe(const axe& ligne, const abscisses& numerotation)
{
    rapportOutils rapport(L"Axe en plan");
    rapport.paragraphe(L"Longueur " + formaterFixe(ligne.longueur(), 3) + L" ; abscisses de " +
                       formaterAbscisse(numerotation.origine(), 3, 2) + L" à " +
                       formaterAbscisse(numerotation.abscisseA(ligne.longueur()), 3, 2) +
                       L". Gisements en grades, au début de chaque élément.");
    htmlTable table = rapport.tableau({L"Élément", L"Abscisse", L"Longueur", L"Rayon", L"A", L"Gisement", L"X", L"Y"});
    for (std::size_t i = 0; i < ligne.elements().size(); ++i) {
        const elementAxe& e = ligne.elements()[i];
        table.beginRow();
        rapportOutils::texte(table, nomElement(e));
        rapportOutils::nombreEcrit(table, formaterAbscisse(numerotation.abscisseA(ligne.debutElement(i)), 3, 2));
        rapportOutils::nombre(table, e.longueur);
        rapportOutils::nombreEcrit(table, rayons(e));
        rapportOutils::nombre(table, e.estDroit() || e.estArc() ? inconnu : parametreClothoide(e));
        ligneDuLieu(table, e, 0.0);
    }
    table.beginRow();
    rapportOutils::texte(table, L"Fin");
    rapportOutils::nombreEcrit(table, formaterAbscisse(numerotation.abscisseA(ligne.longueur()), 3, 2));
    for (int vide = 0; vide < 3; ++vide)
        rapportOutils::nombreEcrit(table, L"");
    ligneDuLieu(table, ligne.elements().back(), ligne.elements().back().longueur);
    rapport.ajouter(table);
    ecrireEquations(rapport, ligne, numerotation);
    return rapport.document();
}
