#include "tools/lispPolylignes.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "points/nomsVoulus.h"
#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/CAcadUndoGroup.h"
#include "services/codages.h"
#include "services/espaceObjet.h"
#include "services/grandeur.h"
#include "services/listeLisp.h"
#include "services/surSommets.h"

#include "aced.h"
#include "acutmem.h"
#include "dbents.h"
#include "dbpl.h"

namespace {

/// A stretch of polyline; a bulge of 0 is a line.
struct segment {
    AcGePoint3d debut, fin;
    double bombement = 0.0; ///< as seen from the side the normal points to
    AcGeVector3d normale = AcGeVector3d::kZAxis;

    /// The polyline's own plane may look down: seen from above it turns the other way.
    void redresser()
    {
        if (normale.z >= 0.0)
            return;
        normale.negate();
        bombement = -bombement;
    }
};

std::optional<segment> segmentLeger(const AcDbPolyline& ligne, unsigned int sommet)
{
    const unsigned int nombre = ligne.numVerts();
    if (sommet >= nombre || (sommet + 1 == nombre && !ligne.isClosed()))
        return std::nullopt;
    segment s;
    ligne.getPointAt(sommet, s.debut);
    ligne.getPointAt((sommet + 1) % nombre, s.fin);
    ligne.getBulgeAt(sommet, s.bombement);
    s.normale = ligne.normal();
    return s;
}

std::optional<segment> segment2d(const AcDb2dPolyline& ligne, unsigned int sommet)
{
    std::vector<std::pair<AcGePoint3d, double>> sommets;
    surSommets<AcDb2dVertex>(ligne,
                             [&](const AcDb2dVertex& s) { sommets.emplace_back(ligne.vertexPosition(s), s.bulge()); });
    if (sommet >= sommets.size() || (sommet + 1 == sommets.size() && !ligne.isClosed()))
        return std::nullopt;
    const auto& [debut, bombement] = sommets[sommet];
    return segment{debut, sommets[(sommet + 1) % sommets.size()].first, bombement, ligne.normal()};
}

/// Always straight: bulges are of the plane.
std::optional<segment> segment3d(const AcDb3dPolyline& ligne, unsigned int sommet)
{
    std::vector<AcGePoint3d> sommets;
    surSommets<AcDb3dPolylineVertex>(ligne, [&](const AcDb3dPolylineVertex& s) { sommets.push_back(s.position()); });
    if (sommet >= sommets.size() || (sommet + 1 == sommets.size() && !ligne.isClosed()))
        return std::nullopt;
    return segment{sommets[sommet], sommets[(sommet + 1) % sommets.size()]};
}

std::optional<segment> segmentDe(const AcDbObjectId& id, int sommet)
{
    const AcDbObjectPointer<AcDbEntity> entite(id);
    if (entite.openStatus() != Acad::eOk || sommet < 0)
        return std::nullopt;
    if (const auto* const legere = AcDbPolyline::cast(entite.object()))
        return segmentLeger(*legere, static_cast<unsigned int>(sommet));
    if (const auto* const ancienne = AcDb2dPolyline::cast(entite.object()))
        return segment2d(*ancienne, static_cast<unsigned int>(sommet));
    if (const auto* const enEspace = AcDb3dPolyline::cast(entite.object()))
        return segment3d(*enEspace, static_cast<unsigned int>(sommet));
    return std::nullopt;
}

/// The bulge is the tangent of a quarter of the arc's angle: centre and radius follow from the chord.
void ajouterArc(listeLisp& liste, const segment& s)
{
    const AcGeVector3d corde = s.fin - s.debut;
    const double b = s.bombement;
    const double versCentre = (1.0 - b * b) / (4.0 * b); // from the middle of the chord, in chords, to its left
    liste.ajouter(s.debut + corde / 2.0 + s.normale.crossProduct(corde) * versCentre);
    liste.ajouter(corde.length() * (1.0 + b * b) / (4.0 * std::abs(b)));
    liste.ajouter(b);
}

/// A whole number; nothing on Enter, a cancel or another text.
std::optional<int> demanderNumero(const wchar_t* message)
{
    ACHAR* texte = nullptr;
    if (acedGetFullString(0, message, texte) != RTNORM)
        return std::nullopt;
    const auto numero = numeroDuNom(texte);
    acutDelString(texte);
    return numero;
}

/// 1 on Enter; nothing on a cancel.
std::optional<int> demanderIncrement()
{
    int increment = 1;
    acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
    const int statut = acedGetInt(L"\nIncrement [1] :", &increment);
    if (statut == RTNONE)
        return 1;
    return statut == RTNORM ? std::optional(increment) : std::nullopt;
}

/// The numbers from `debut` to `fin`, up or down, by `increment`. Point numbers have nine digits: all of it fits.
struct suiteNumeros {
    int debut, fin, increment;

    int dernierRang() const { return std::abs(fin - debut) / increment; }
    int numero(int rang) const { return fin < debut ? debut - rang * increment : debut + rang * increment; }
    std::optional<int> rangDe(int numero) const
    {
        const int ecart = fin < debut ? debut - numero : numero - debut;
        const bool present = ecart >= 0 && ecart <= std::abs(fin - debut) && ecart % increment == 0;
        return present ? std::optional(ecart / increment) : std::nullopt;
    }
};

void signalerAbsents(const suiteNumeros& suite, int premierRang, int dernierRang)
{
    if (premierRang == dernierRang)
        acutPrintf(L"\nPoint %d absent de la table", suite.numero(premierRang));
    else if (premierRang < dernierRang)
        acutPrintf(L"\nPoints %d \u00e0 %d absents de la table", suite.numero(premierRang), suite.numero(dernierRang));
}

/// Sorts the points of the table into the sequence rather than looking for each of its numbers, which may be millions.
AcGePoint3dArray pointsNumerotes(const listePointsDuDessin& table, const suiteNumeros& suite)
{
    std::map<int, int> positions; // by rank; the last point of a number counts, as when a name is looked up
    for (int i = 0; i < table.nbPoint(); ++i)
        if (const auto numero = numeroDuNom(depuisAnsi(table.getData(i)->getNomPoint())))
            if (const auto rang = suite.rangDe(*numero))
                positions[*rang] = i;
    AcGePoint3dArray points;
    int attendu = 0;
    for (const auto& [rang, position] : positions) {
        signalerAbsents(suite, attendu, rang - 1);
        attendu = rang + 1;
        const AcGePoint3d place = table.getData(position)->getAs3dPnt();
        if (estConnue(place.x) && estConnue(place.y))
            points.append(place);
        else
            acutPrintf(L"\nPoint %d sans coordonn\u00e9es", suite.numero(rang));
    }
    signalerAbsents(suite, attendu, suite.dernierRang());
    return points;
}

std::unique_ptr<AcDbEntity> lignePar(const AcGePoint3dArray& points)
{
    const bool enEspace =
        std::all_of(points.begin(), points.end(), [](const AcGePoint3d& p) { return p.z != inconnu; });
    if (enEspace)
        return std::make_unique<AcDb3dPolyline>(AcDb::k3dSimplePoly, points);
    auto ligne = std::make_unique<AcDbPolyline>(static_cast<unsigned int>(points.length()));
    for (const AcGePoint3d& p : points)
        ligne->addVertexAt(ligne->numVerts(), {p.x, p.y});
    return ligne;
}

} // namespace

int lispGetsegtype()
{
    argumentsLisp arguments;
    AcDbObjectId id;
    int sommet = 0;
    if (!arguments.lireEntite(id) || !arguments.lireEntier(sommet) || !arguments.fini())
        return refuserParametres();
    auto s = segmentDe(id, sommet);
    if (!s)
        return rendreNil();
    s->redresser();
    listeLisp liste;
    liste.ajouter(s->bombement == 0.0 ? L"LIGNE" : L"ARC");
    liste.ajouter(s->debut);
    liste.ajouter(s->fin);
    if (s->bombement != 0.0)
        ajouterArc(liste, *s);
    return liste.rendre();
}

int lispTopJndre()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    if (!table)
        return RTNORM;
    const auto debut = demanderNumero(L"\nNumero de debut");
    const auto fin = debut ? demanderNumero(L"\nNumero de fin") : std::nullopt;
    const auto increment = fin ? demanderIncrement() : std::nullopt;
    if (!increment)
        return RTNORM;
    const AcGePoint3dArray points = pointsNumerotes(*table, {*debut, *fin, *increment});
    if (points.length() < 2) {
        acutPrintf(L"\nIl faut au moins deux points");
        return RTNORM;
    }
    const CAcadUndoGroup groupe;
    std::unique_ptr<AcDbEntity> ligne = lignePar(points);
    ligne->setDatabaseDefaults();
    ajouterEspaceObjet(std::move(ligne));
    return RTNORM;
}
