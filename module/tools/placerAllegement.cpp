#include "tools/placerAllegement.h"

#include <map>
#include <memory>
#include <set>
#include <unordered_set>

#include "codification/parcoursBloc.h"
#include "geometrie/axeDeCourbe.h"
#include "points/nomsVoulus.h"
#include "points/projetDansDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/definitionsDessin.h"
#include "services/donneesObjet.h"
#include "services/espaceObjet.h"
#include "services/surSommets.h"
#include "tools/allegement.h"
#include "tools/placerSignatures.h"

#include "dbents.h"
#include "dbentvrt.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace {

std::set<AcDbObjectId> symbolesDesPoints()
{
    std::set<AcDbObjectId> symboles;
    for (int t = 0; tablesPoints && t < tablesPoints->nbTables(); ++t) {
        const listePointsDuDessin& table = *tablesPoints->getTable(t);
        for (int i = 0; i < table.nbPoint(); ++i)
            symboles.insert(table.getData(i)->getId());
    }
    return symboles;
}

/// A lightweight polyline in its own plane, which its vertices share with those of the same plane.
ligneAllegee ligneDe(const AcDbPolyline& polyligne)
{
    ligneAllegee ligne;
    ligne.fermee = polyligne.isClosed();
    const bool large = polyligne.hasWidth();
    for (unsigned int i = 0; i < polyligne.numVerts(); ++i) {
        sommetAxe s;
        AcGePoint3d place;
        polyligne.getPointAt(i, place);
        polyligne.getBulgeAt(i, s.bombement);
        s.place = pointDe(place);
        ligne.sommets.push_back(s);
    }
    ligne.intouchable = large; // widths change along the line
    return ligne;
}

ligneAllegee ligneDe(const AcDb3dPolyline& polyligne)
{
    ligneAllegee ligne;
    ligne.fermee = polyligne.isClosed();
    ligne.intouchable = polyligne.polyType() != AcDb::k3dSimplePoly;
    surSommets<AcDb3dPolylineVertex>(polyligne, [&](const AcDb3dPolylineVertex& s) {
        ligne.sommets.push_back({pointDe(s.position()), 0.0});
    });
    return ligne;
}

ligneAllegee ligneDe(const AcDb2dPolyline& polyligne)
{
    ligneAllegee ligne;
    ligne.fermee = polyligne.isClosed();
    ligne.intouchable = polyligne.polyType() != AcDb::k2dSimplePoly || polyligne.defaultStartWidth() != 0.0 ||
                        polyligne.defaultEndWidth() != 0.0;
    surSommets<AcDb2dVertex>(polyligne, [&](const AcDb2dVertex& s) {
        ligne.sommets.push_back({pointDe(polyligne.vertexPosition(s)), s.bulge()});
        ligne.intouchable = ligne.intouchable || s.startWidth() != 0.0 || s.endWidth() != 0.0;
    });
    return ligne;
}

bool longueurNulle(const ligneAllegee& ligne)
{
    for (const sommetAxe& s : ligne.sommets) {
        const point3 &p = s.place, &q = ligne.sommets.front().place;
        if (p.x != q.x || p.y != q.y || p.z != q.z)
            return false;
    }
    return true;
}

/// Vertices to the front, then the end cut off: each removal from the middle would move all that follow.
void garderSommets(AcDbPolyline& ligne, const std::vector<std::size_t>& restent)
{
    unsigned int vers = 0;
    for (const std::size_t reste : restent) {
        const auto de = static_cast<unsigned int>(reste);
        AcGePoint2d p;
        double bombement = 0.0;
        ligne.getPointAt(de, p);
        ligne.getBulgeAt(de, bombement);
        ligne.setPointAt(vers, p);
        ligne.setBulgeAt(vers, bombement);
        ++vers;
    }
    while (ligne.numVerts() > vers)
        ligne.removeVertexAt(ligne.numVerts() - 1);
}

void garderSommets(const AcDbVertexCurve& ligne, const std::vector<std::size_t>& restent)
{
    std::vector<AcDbObjectId> sommets;
    const std::unique_ptr<AcDbObjectIterator> it(ligne.vertexIterator());
    for (it->start(); !it->done(); it->step())
        sommets.push_back(it->objectId());
    for (std::size_t i = 0, j = 0; i < sommets.size(); ++i) {
        if (j < restent.size() && restent[j] == i) {
            ++j;
            continue;
        }
        const AcDbObjectPointer<AcDbVertex> sommet(sommets[i], AcDb::kForWrite);
        if (sommet.openStatus() == Acad::eOk)
            sommet->erase();
    }
}

} // namespace

/// One walk over model space, then what it found is looked at together.
class analyseAllegement {
public:
    analyseAllegement(const optionsAllegement& options, allegementDessin& resultat) :
        m_options(options),
        m_resultat(resultat),
        m_choisis(options.objets.begin(), options.objets.end()),
        m_calques(options.calques),
        m_symboles(symbolesDesPoints())
    {
    }

    void faire()
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> espace(espaceObjetDuDessin());
        if (espace.openStatus() != Acad::eOk)
            return;
        pourChaqueEntite(*espace.object(), [this](const AcDbEntity& entite) { voir(entite); });
        if (m_options.sommets)
            allegerLignes();
        if (m_options.segments)
            allegerSegments();
    }

private:
    bool voulu(const AcDbEntity& entite)
    {
        if (!m_choisis.empty() && !m_choisis.contains(entite.objectId()))
            return false;
        if (!m_options.calques.empty() && !calqueVoulu(entite.layerId()))
            return false;
        if (m_symboles.contains(entite.objectId()) || porteDesDonnees(entite))
            return false;
        const bool verrouille = estVerrouille(entite.objectId());
        m_resultat.m_bilan.verrouilles += verrouille;
        return !verrouille;
    }
    bool calqueVoulu(const AcDbObjectId& id)
    {
        const auto pose = m_calquesVus.try_emplace(id, false);
        if (pose.second)
            pose.first->second = m_calques.contient(nomDefinition(id));
        return pose.first->second;
    }

    void voir(const AcDbEntity& entite)
    {
        const bool libre = voulu(entite);
        ligneAllegee ligne;
        bool estLigne = true;
        if (const auto* const legere = AcDbPolyline::cast(&entite))
            ligne = ligneDe(*legere);
        else if (const auto* const enEspace = AcDb3dPolyline::cast(&entite))
            ligne = ligneDe(*enEspace);
        else if (const auto* const ancienne = AcDb2dPolyline::cast(&entite))
            ligne = ligneDe(*ancienne);
        else if (const auto* const segment = AcDbLine::cast(&entite))
            ligne.sommets = {{pointDe(segment->startPoint()), 0.0}, {pointDe(segment->endPoint()), 0.0}};
        else
            estLigne = false;
        if (libre && m_options.nuls && estLigne && longueurNulle(ligne))
            return effacer(entite, m_resultat.m_bilan.nuls);
        if (libre && m_options.repetes && estRepete(entite))
            return effacer(entite, m_resultat.m_bilan.repetes);
        if (!estLigne)
            return;
        const auto* const segment = AcDbLine::cast(&entite);
        ligne.intouchable = ligne.intouchable || !libre || segment;
        if (libre && segment)
            ajouterSegment(*segment);
        m_lignes.push_back(std::move(ligne));
        m_ids.push_back(entite.objectId());
    }
    void effacer(const AcDbEntity& entite, int& compte)
    {
        m_resultat.m_effaces.push_back(entite.objectId());
        ++compte;
    }
    bool estRepete(const AcDbEntity& entite)
    {
        std::string signature = signatureEntite(entite);
        return !signature.empty() && !m_signatures.insert(std::move(signature)).second;
    }
    void ajouterSegment(const AcDbLine& ligne)
    {
        const auto suivante = static_cast<int>(m_familles.size());
        const int famille = m_familles.try_emplace(signatureFamille(ligne), suivante).first->second;
        m_segments.push_back({pointDe(ligne.startPoint()), pointDe(ligne.endPoint()), famille});
        m_idsSegments.push_back(ligne.objectId());
    }

    void allegerLignes()
    {
        const auto gardes = sommetsGardes(m_lignes, m_options.tolerance);
        for (std::size_t i = 0; i < gardes.size(); ++i)
            if (const std::size_t partent = m_lignes[i].sommets.size() - gardes[i].size(); partent > 0) {
                m_resultat.m_lignes.push_back({m_ids[i], gardes[i]});
                m_resultat.m_bilan.sommets += static_cast<int>(partent);
            }
    }
    void allegerSegments()
    {
        const auto reunis = reunirSegments(m_segments, m_options.tolerance);
        for (std::size_t i = 0; i < reunis.size(); ++i) {
            const segmentReuni& r = reunis[i];
            if (r.part) {
                m_resultat.m_effaces.push_back(m_idsSegments[i]);
                ++m_resultat.m_bilan.segments;
            } else if (r.change) {
                m_resultat.m_segments.push_back(
                    {m_idsSegments[i], {r.debut.x, r.debut.y, r.debut.z}, {r.fin.x, r.fin.y, r.fin.z}});
            }
        }
    }

    const optionsAllegement& m_options;
    allegementDessin& m_resultat;
    std::set<AcDbObjectId> m_choisis;
    nomsVoulus m_calques;
    std::map<AcDbObjectId, bool> m_calquesVus;
    std::set<AcDbObjectId> m_symboles;
    std::unordered_set<std::string> m_signatures;
    std::vector<ligneAllegee> m_lignes;
    std::vector<AcDbObjectId> m_ids, m_idsSegments;
    std::vector<segmentAllege> m_segments;
    std::map<std::string, int> m_familles; ///< of lines that look alike
};

allegementDessin::allegementDessin(const optionsAllegement& options)
{
    analyseAllegement(options, *this).faire();
    m_definitions = chercherDefinitionsInutiles(options.definitions);
}

void allegementDessin::appliquer() const
{
    const CAcadUndoGroup groupe;
    for (const ligneChangee& ligne : m_lignes) {
        const AcDbObjectPointer<AcDbEntity> entite(ligne.id, AcDb::kForWrite);
        if (entite.openStatus() != Acad::eOk)
            continue;
        if (auto* const legere = AcDbPolyline::cast(entite.object()))
            garderSommets(*legere, ligne.restent);
        else if (const auto* const ancienne = dynamic_cast<const AcDbVertexCurve*>(entite.object()))
            garderSommets(*ancienne, ligne.restent);
    }
    for (const segmentChange& segment : m_segments) {
        const AcDbObjectPointer<AcDbLine> ligne(segment.id, AcDb::kForWrite);
        if (ligne.openStatus() != Acad::eOk)
            continue;
        ligne->setStartPoint({segment.debut[0], segment.debut[1], segment.debut[2]});
        ligne->setEndPoint({segment.fin[0], segment.fin[1], segment.fin[2]});
    }
    for (const AcDbObjectId& id : m_effaces) {
        const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
        if (entite.openStatus() == Acad::eOk)
            entite->erase();
    }
    for (const AcDbObjectId& id : m_definitions.ids) {
        const AcDbObjectPointer<AcDbObject> definition(id, AcDb::kForWrite);
        if (definition.openStatus() == Acad::eOk)
            definition->erase();
    }
}
