#include "recolteTerrain.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <unordered_map>

#include "points/attribsPoints.h"
#include "points/projetDansDessin.h"
#include "services/ecrituresDuModule.h"
#include "services/grandeur.h"
#include "services/lettres.h"
#include "services/lireNombre.h"
#include "services/surSommets.h"

#include "acutmem.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbspline.h"
#include "dbsymtb.h"
#include "tracesTerrain.h"

namespace {

constexpr double sansAltitude = semisTerrain::sansAltitude;

struct hacheId {
    std::size_t operator()(const AcDbObjectId& id) const { return std::hash<std::int64_t>()(id.asOldId()); }
};
using pointsParSymbole = std::unordered_map<AcDbObjectId, const pointDuDessin*, hacheId>;

pointsParSymbole symbolesDesTables()
{
    pointsParSymbole symboles;
    if (!tablesPoints)
        return symboles;
    for (int t = 0; t < tablesPoints->nbTables(); ++t) {
        const listePointsDuDessin& table = *tablesPoints->getTable(t);
        for (int i = 0; i < table.nbPoint(); ++i)
            if (!table.getData(i)->getId().isNull())
                symboles.emplace(table.getData(i)->getId(), table.getData(i));
    }
    return symboles;
}

/// A text that the host hands over.
std::wstring repris(ACHAR* remis)
{
    std::wstring texte = remis ? remis : L"";
    acutDelString(remis);
    return texte;
}

/// Without the blanks around it.
std::wstring depouille(std::wstring_view texte)
{
    return std::wstring(sansBlancs(texte, L" \t\r\n"));
}

sommetSol sommetDe(const AcGePoint3d& p)
{
    return {{p.x, p.y}, p.z};
}

/// Chords of a curve from one parameter to the other: at most ten degrees of turn each, as far as two tangents tell.
void ajouterCordes(const AcDbCurve& courbe, double de, double vers, std::vector<sommetSol>& sommets)
{
    AcGeVector3d debut, fin;
    int pas = 1;
    if (courbe.getFirstDeriv(de + (vers - de) * 1e-6, debut) == Acad::eOk &&
        courbe.getFirstDeriv(vers - (vers - de) * 1e-6, fin) == Acad::eOk) {
        const double virage =
            std::abs(std::remainder(std::atan2(fin.y, fin.x) - std::atan2(debut.y, debut.x), 2.0 * std::numbers::pi));
        pas = std::clamp(static_cast<int>(std::ceil(virage / 0.17)), 1, 40);
    }
    for (int i = 1; i <= pas; ++i) {
        AcGePoint3d p;
        if (courbe.getPointAtParam(de + (vers - de) * i / pas, p) == Acad::eOk)
            sommets.push_back(sommetDe(p));
    }
}

/// The curve's vertices, arcs by chords. Parameters of polylines count vertices; others are cut in 36.
std::vector<sommetSol> sommetsDe(const AcDbCurve& courbe)
{
    double debut = 0.0, fin = 0.0;
    AcGePoint3d premier;
    std::vector<sommetSol> sommets;
    if (courbe.getStartParam(debut) != Acad::eOk || courbe.getEndParam(fin) != Acad::eOk ||
        courbe.getPointAtParam(debut, premier) != Acad::eOk || !(fin > debut))
        return sommets;
    sommets.push_back(sommetDe(premier));
    const bool parSommets = courbe.isKindOf(AcDbPolyline::desc()) || courbe.isKindOf(AcDb2dPolyline::desc()) ||
                            courbe.isKindOf(AcDb3dPolyline::desc());
    const bool droite = courbe.isKindOf(AcDbLine::desc());
    const int morceaux = parSommets ? static_cast<int>(std::lround(fin - debut)) : droite ? 1 : 36;
    for (int i = 0; i < morceaux; ++i) {
        const double de = debut + (fin - debut) * i / morceaux, vers = debut + (fin - debut) * (i + 1) / morceaux;
        ajouterCordes(courbe, de, vers, sommets);
    }
    return sommets;
}

/// The vertices of a 3D polyline as they stand in the drawing: no curve is asked for each of them.
std::vector<sommetSol> sommetsDe3d(const AcDb3dPolyline& ligne)
{
    std::vector<sommetSol> sommets;
    surSommets<AcDb3dPolylineVertex>(ligne, [&](const AcDb3dPolylineVertex& s) {
        if (s.vertexType() != AcDb::k3dControlVertex)
            sommets.push_back(sommetDe(s.position()));
    });
    if (ligne.isClosed() && sommets.size() > 2)
        sommets.push_back(sommets.front());
    return sommets;
}

/// A text that is a number with decimals: whole ones are numbers of points, of plots, of houses.
std::optional<double> altitudeLue(const std::wstring& texte)
{
    double valeur = 0.0;
    if (texte.find(L'.') == std::wstring::npos || !lireNombre(texte.c_str(), valeur) || !std::isfinite(valeur))
        return std::nullopt;
    return valeur;
}

class moisson {
public:
    recolteTerrain recolte;

    void prendre(const sourcesTerrain& sources)
    {
        recolte.semis.areteMax = sources.areteMax;
        for (const std::wstring& nom : sources.tables)
            prendreTable(nom);
        for (const AcDbObjectId& id : sources.objets)
            prendreObjet(id, std::nullopt);
        for (const AcDbObjectId& id : sources.limites)
            prendreObjet(id, semisTerrain::genre::limite);
        for (const AcDbObjectId& id : sources.trous)
            prendreObjet(id, semisTerrain::genre::trou);
        ecarterRedites();
        ecarterPlats();
    }

private:
    using genre = semisTerrain::genre;

    void prendreTable(const std::wstring& nom)
    {
        for (int t = 0; tablesPoints && t < tablesPoints->nbTables(); ++t) {
            const listePointsDuDessin& table = *tablesPoints->getTable(t);
            if (nom != table.getNomTable().GetString())
                continue;
            for (int i = 0; i < table.nbPoint(); ++i)
                prendrePoint(*table.getData(i));
            return;
        }
    }

    void prendrePoint(const pointDuDessin& point)
    {
        if (!estConnue(point.getX()) || !estConnue(point.getY()) || !estConnue(point.getZ()))
            ++recolte.sansAltitude;
        else
            ajouterPoint({{point.getX(), point.getY()}, point.getZ()});
    }

    void ajouterPoint(const sommetSol& p)
    {
        recolte.semis.points.push_back(p);
        ++recolte.points;
    }

    void prendreObjet(const AcDbObjectId& id, std::optional<genre> nature)
    {
        const AcDbObjectPointer<AcDbEntity> ouverte(id);
        if (ouverte.openStatus() != Acad::eOk) {
            ++recolte.inutiles;
            return;
        }
        const AcDbEntity& entite = *ouverte.object();
        if (estTraceDeModele(entite)) {
            ++recolte.traces;
            return;
        }
        if (const auto* const courbe = AcDbCurve::cast(&entite))
            prendreCourbe(*courbe, nature ? *nature : natureParCalque(entite));
        else if (const auto* const face = AcDbFace::cast(&entite))
            prendreFace(*face);
        else if (nature)
            ++recolte.inutiles;
        else
            prendrePonctuel(entite);
    }

    void prendrePonctuel(const AcDbEntity& entite)
    {
        if (const auto* const point = AcDbPoint::cast(&entite))
            ajouterPoint(sommetDe(point->position()));
        else if (const auto* const bloc = AcDbBlockReference::cast(&entite))
            prendreBloc(*bloc);
        else if (const auto* const texte = AcDbText::cast(&entite))
            prendreTexte(entite, texte->textStringConst(), texte->position(), texte->height());
        else if (const auto* const lignes = AcDbMText::cast(&entite))
            prendreTexte(entite, repris(lignes->text()), lignes->location(), lignes->textHeight());
        else
            ++recolte.inutiles;
    }

    static genre natureParCalque(const AcDbEntity& entite)
    {
        const std::wstring calque = repris(entite.layer());
        return memesLettres(calque, calqueLimites) ? genre::limite
               : memesLettres(calque, calqueTrous) ? genre::trou
                                                   : genre::rupture;
    }

    void prendreCourbe(const AcDbCurve& courbe, genre nature)
    {
        const auto* const enEspace = AcDb3dPolyline::cast(&courbe);
        semisTerrain::ligne ligne{nature, enEspace ? sommetsDe3d(*enEspace) : sommetsDe(courbe)};
        if (ligne.sommets.size() < 2) {
            ++recolte.inutiles;
            return;
        }
        ++(nature == genre::rupture ? recolte.lignes : recolte.contours);
        if (nature != genre::rupture && plate(ligne))
            for (sommetSol& s : ligne.sommets)
                s.z = sansAltitude;
        recolte.semis.lignes.push_back(std::move(ligne));
    }

    void prendreFace(const AcDbFace& face)
    {
        semisTerrain::ligne tour;
        for (const int coin : {0, 1, 2, 3, 0}) {
            AcGePoint3d p;
            face.getVertexAt(static_cast<Adesk::UInt16>(coin), p);
            tour.sommets.push_back(sommetDe(p));
        }
        recolte.semis.lignes.push_back(std::move(tour));
        ++recolte.lignes;
    }

    /// The altitude of a symbol is in its table to the last digit, in its attribute as it is written.
    void prendreBloc(const AcDbBlockReference& bloc)
    {
        if (!symboles)
            symboles = symbolesDesTables();
        if (const auto trouve = symboles->find(bloc.objectId()); trouve != symboles->end())
            return prendrePoint(*trouve->second);
        const std::unique_ptr<AcDbObjectIterator> it(bloc.attributeIterator());
        for (; !it->done(); it->step()) {
            const AcDbObjectPointer<AcDbAttribute> attribut(it->objectId());
            if (attribut.openStatus() != Acad::eOk ||
                !memesLettres(std::wstring_view(attribut->tagConst()),
                              std::wstring_view(attribsDuModule.altitude.GetString())))
                continue;
            double z = 0.0;
            if (lireNombre(depouille(attribut->textStringConst()).c_str(), z) != 0 && std::isfinite(z))
                return ajouterPoint({{bloc.position().x, bloc.position().y}, z});
            ++recolte.sansAltitude;
            return;
        }
        ajouterPoint(sommetDe(bloc.position()));
    }

    void prendreTexte(const AcDbEntity& entite, const std::wstring& brut, const AcGePoint3d& position, double hauteur)
    {
        const std::wstring texte = depouille(brut);
        const auto z = altitudeLue(texte);
        if (!z) {
            ++recolte.textesLus;
            return;
        }
        constexpr double plusHaute = 9000.0; // no ground is higher: labels of grids that other programs drew
        if (*z > plusHaute || ditDesCoordonnees(entite)) {
            ++recolte.coordonnees;
            return;
        }
        const auto decimales = static_cast<double>(texte.size() - texte.find(L'.') - 1);
        cotes.push_back({{{position.x, position.y}, *z}, hauteur, 0.5000001 * std::pow(10.0, -decimales)});
    }

    /// The altitude written beside a point is the point's: as a point of its own it would stand in the wrong place.
    void ecarterRedites()
    {
        constexpr double pres = 5.0; // heights of text
        std::vector<sommetSol> parX = recolte.semis.points;
        std::sort(parX.begin(), parX.end(), [](const sommetSol& p, const sommetSol& q) { return p.x < q.x; });
        for (const coteEcrite& cote : cotes) {
            const double rayon = pres * cote.hauteur;
            auto p = std::lower_bound(parX.begin(), parX.end(), cote.sommet.x - rayon,
                                      [](const sommetSol& s, double x) { return s.x < x; });
            while (p != parX.end() && p->x <= cote.sommet.x + rayon &&
                   (std::abs(p->y - cote.sommet.y) > rayon || std::abs(p->z - cote.sommet.z) > cote.arrondi))
                ++p;
            if (p != parX.end() && p->x <= cote.sommet.x + rayon) {
                ++recolte.redites;
            } else {
                recolte.semis.points.push_back(cote.sommet);
                ++recolte.textes;
            }
        }
    }

    static bool plate(const semisTerrain::ligne& ligne)
    {
        return std::all_of(ligne.sommets.begin(), ligne.sommets.end(), [](const sommetSol& s) { return s.z == 0.0; });
    }

    void ecarterPlats()
    {
        semisTerrain& semis = recolte.semis;
        const auto rupturePlate = [](const semisTerrain::ligne& l) { return l.nature == genre::rupture && plate(l); };
        const bool relief =
            std::any_of(semis.points.begin(), semis.points.end(), [](const sommetSol& s) { return s.z != 0.0; }) ||
            std::any_of(semis.lignes.begin(), semis.lignes.end(),
                        [&](const semisTerrain::ligne& l) { return l.nature == genre::rupture && !plate(l); });
        if (!relief)
            return;
        const auto points = std::erase_if(semis.points, [](const sommetSol& s) { return s.z == 0.0; });
        const auto lignes = std::erase_if(semis.lignes, rupturePlate);
        recolte.points -= static_cast<int>(points);
        recolte.lignes -= static_cast<int>(lignes);
        recolte.aPlat = static_cast<int>(points + lignes);
    }

    /// A text that is an altitude.
    struct coteEcrite {
        sommetSol sommet;
        double hauteur = 0.0, arrondi = 0.0; // of the text; half a unit of its last digit
    };

    std::optional<pointsParSymbole> symboles;
    std::vector<coteEcrite> cotes;
};

class melange {
public:
    void ajouter(double valeur) { ajouter(std::bit_cast<std::uint64_t>(valeur)); }
    void ajouter(const sommetSol& s)
    {
        ajouter(s.x);
        ajouter(s.y);
        ajouter(s.z);
    }
    void ajouter(std::uint64_t valeur)
    {
        etat = (etat ^ valeur) * 0x9E3779B97F4A7C15ULL;
        etat ^= etat >> 29U;
    }
    std::uint64_t valeur() const { return etat; }

private:
    std::uint64_t etat = 0x243F6A8885A308D3ULL;
};

void ligneDeCompte(std::wstring& texte, int nombre, const wchar_t* quoi)
{
    if (nombre > 0)
        texte += L"\n" + std::to_wstring(nombre) + L" " + quoi;
}

} // namespace

std::wstring recolteTerrain::texte() const
{
    std::wstring lu = L"\n" + std::to_wstring(points) + L" points, " + std::to_wstring(textes) + L" textes, " +
                      std::to_wstring(lignes) + L" lignes de rupture, " + std::to_wstring(contours) +
                      L" limites et trous";
    ligneDeCompte(lu, sansAltitude, L"points sans altitude laiss\u00e9s de c\u00f4t\u00e9");
    ligneDeCompte(lu, aPlat, L"objets \u00e0 l'altitude 0 laiss\u00e9s de c\u00f4t\u00e9");
    ligneDeCompte(lu, traces, L"objets dessin\u00e9s d'apr\u00e8s un mod\u00e8le laiss\u00e9s de c\u00f4t\u00e9");
    ligneDeCompte(
        lu, coordonnees,
        L"textes laiss\u00e9s de c\u00f4t\u00e9 : ce sont des coordonn\u00e9es (carroyage, table, implantation)");
    ligneDeCompte(lu, redites, L"textes qui redisent l'altitude d'un point");
    ligneDeCompte(lu, textesLus,
                  L"textes laiss\u00e9s de c\u00f4t\u00e9 : ils ne sont pas un nombre avec d\u00e9cimales");
    ligneDeCompte(lu, inutiles, L"autres objets laiss\u00e9s de c\u00f4t\u00e9");
    return lu;
}

recolteTerrain recolter(const sourcesTerrain& sources)
{
    moisson m;
    m.prendre(sources);
    return std::move(m.recolte);
}

std::uint64_t empreinte(const semisTerrain& semis)
{
    melange m;
    m.ajouter(semis.areteMax);
    m.ajouter(std::uint64_t{semis.points.size()});
    for (const sommetSol& s : semis.points)
        m.ajouter(s);
    for (const semisTerrain::ligne& l : semis.lignes) {
        m.ajouter(static_cast<std::uint64_t>(l.nature) << 32U | l.sommets.size());
        for (const sommetSol& s : l.sommets)
            m.ajouter(s);
    }
    return m.valeur();
}

std::uint64_t empreinteDesTables()
{
    melange m;
    for (int t = 0; tablesPoints && t < tablesPoints->nbTables(); ++t) {
        const listePointsDuDessin& table = *tablesPoints->getTable(t);
        for (const wchar_t* c = table.getNomTable().GetString(); *c; ++c)
            m.ajouter(static_cast<std::uint64_t>(*c));
        m.ajouter(static_cast<std::uint64_t>(table.nbPoint()));
        for (int i = 0; i < table.nbPoint(); ++i) {
            const pointDuDessin& p = *table.getData(i);
            m.ajouter(sommetSol{{p.getX(), p.getY()}, p.getZ()});
        }
    }
    return m.valeur();
}
