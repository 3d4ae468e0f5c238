#include "tools/placerAxe.h"

#include <algorithm>
#include <numbers>

#include "services/ajoutEntites.h"
#include "services/CAcadUndoGroup.h"
#include "services/formatNombres.h"

#include "dbpl.h"

namespace {

double bombementDe(const elementAxe& arc)
{
    return std::tan(arc.courbureDebut * arc.longueur / 4.0);
}

std::unique_ptr<AcDbPolyline> polyligneDessinee(const axe& ligne, double fleche)
{
    auto polyligne = std::make_unique<AcDbPolyline>();
    polyligne->setDatabaseDefaults();
    const auto ajouter = [&](point2 p, double bombement) {
        polyligne->addVertexAt(polyligne->numVerts(), {p.x, p.y}, bombement);
    };
    for (const elementAxe& e : ligne.elements()) {
        if (e.estArc() || e.estDroit()) {
            ajouter(e.debut, e.estArc() ? bombementDe(e) : 0.0);
            continue;
        }
        const double cordes = nombreCordes(e, fleche);
        for (double k = 0.0; k < cordes; k += 1.0)
            ajouter(e.pointA(e.longueur * k / cordes), 0.0);
    }
    ajouter(ligne.pointA(ligne.longueur()), 0.0);
    return polyligne;
}

/// Lengths at which a chainage is written, each once: ends, points of tangency, leaps of the chainage, and between them
/// the round ones whose text would not touch theirs.
std::vector<double> lieuxEcrits(const axe& ligne, const abscisses& numerotation, const dessinAxe& dessin)
{
    std::vector<double> lieux = ligne.sommets();
    for (const abscisses::saut& saut : numerotation.sauts())
        if (saut.longueur <= ligne.longueur())
            lieux.push_back(saut.longueur);
    std::sort(lieux.begin(), lieux.end());
    lieux.erase(std::unique(lieux.begin(), lieux.end(), [](double a, double b) { return b - a < 0.001; }), lieux.end());
    const double ecart = 1.25 * dessin.tailleTextes;
    const std::vector<double> remarquables = lieux;
    for (const double jalon : numerotation.jalons(dessin.pasEcritures, ligne.longueur())) {
        const auto apres = std::lower_bound(remarquables.begin(), remarquables.end(), jalon - ecart);
        if (apres == remarquables.end() || *apres > jalon + ecart)
            lieux.push_back(jalon);
    }
    return lieux;
}

void ecrireAbscisse(ajoutEntites& ajout, const axe& ligne, const abscisses& numerotation, double lieu, double taille)
{
    const point2 p = ligne.pointA(lieu), droite = droiteDe(ligne.directionA(lieu));
    const auto en = [&](double ecart) {
        const point2 q = p + droite * ecart;
        return AcGePoint3d(q.x, q.y, 0.0);
    };
    auto trait = std::make_unique<AcDbLine>(en(-taille / 2.0), en(taille / 2.0));
    trait->setDatabaseDefaults();
    ajout.ajouter(std::move(trait));
    // Written outwards on the right side; turned round where it would stand on its head.
    const std::wstring texte = formaterAbscisse(numerotation.abscisseA(lieu), 2, 2);
    const double angle = std::atan2(droite.y, droite.x);
    const bool alenvers = std::cos(angle) < -1e-9;
    const double rotation = alenvers ? angle + std::numbers::pi : angle;
    const point2 bas = tourner({0.0, -taille / 2.0}, rotation); // the middle of the text on the tick's line
    AcGePoint3d place = en(taille);
    place.x += bas.x;
    place.y += bas.y;
    ajout.ecrire(place, texte, taille, rotation, alenvers ? calageTexte::droite : calageTexte::gauche);
}

} // namespace

bool placerAxe(const axeEnregistre& lAxe, const dessinAxe& dessin)
{
    const CAcadUndoGroup groupe;
    AcDbObjectId polyligne;
    {
        ajoutEntites ajout;
        polyligne = ajout.ajouter(polyligneDessinee(lAxe.ligne, dessin.fleche));
        const abscisses numerotation = lAxe.numerotation();
        for (const double lieu : lieuxEcrits(lAxe.ligne, numerotation, dessin))
            ecrireAbscisse(ajout, lAxe.ligne, numerotation, lieu, dessin.tailleTextes);
    }
    return !polyligne.isNull() && enregistrerAxe(polyligne, lAxe);
}
