#include "exchange/ajoutPoints.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "codification/editionPoint.h"
#include "points/listePointsDuDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/codages.h"
#include "services/lettres.h"

namespace {

/// A name without what does not count in it.
std::string cleDuNom(const char* nom)
{
    std::string cle(sansBlancs(std::string_view(nom), " \t"));
    std::ranges::transform(cle, cle.begin(), minuscule8);
    return cle;
}

/// Names of the table and the places of the last points that bear them. The table's own index may lag behind.
std::unordered_map<std::string, int> nomsDe(const listePointsDuDessin& table)
{
    std::unordered_map<std::string, int> noms;
    noms.reserve(static_cast<std::size_t>(table.nbPoint()));
    for (int i = 0; i < table.nbPoint(); ++i)
        noms[cleDuNom(table.getData(i)->getNomPoint())] = i;
    return noms;
}

/// One run over the points that come in.
class ajout {
public:
    ajout(listePointsDuDessin& table, std::span<const pointXYZ> points, nomsExistants choix,
          observationsEnAttente& observations) :
        m_table(table),
        m_choix(choix),
        m_observations(observations)
    {
        if (m_choix != nomsExistants::ajouter)
            m_noms = nomsDe(table);
        if (m_choix == nomsExistants::renumeroter)
            m_dernierNumero = std::max(table.getMaxNum(), plusGrandNumero(points));
    }

    void prendre(pointXYZ& lu)
    {
        pointDuDessin point;
        point = lu;
        bilan.nomsCoupes += lu.nom.size() > pointDuDessin::longueurNom ? 1 : 0;
        const auto existant = m_noms.find(cleDuNom(point.getNomPoint()));
        if (existant == m_noms.end())
            return ajouter(point, lu.observation);
        switch (m_choix) {
        case nomsExistants::laisser:
            ++bilan.laisses;
            return;
        case nomsExistants::remplacer:
            return remplacer(existant->second, point, lu.observation);
        default:
            point.setNomPoint(std::to_string(++m_dernierNumero).c_str());
            ++bilan.renumerotes;
            return ajouter(point, lu.observation);
        }
    }

    bilanAjout bilan;

private:
    static int plusGrandNumero(std::span<const pointXYZ> points)
    {
        listePointsDuDessin seuls;
        for (const pointXYZ& lu : points) {
            pointDuDessin point;
            point = lu;
            seuls.Ajouter(point);
        }
        return seuls.getMaxNum();
    }

    void observer(int place, std::wstring& observation)
    {
        if (observation.empty())
            return;
        m_observations[place] = std::move(observation);
        ++bilan.observes;
    }

    void ajouter(const pointDuDessin& point, std::wstring& observation)
    {
        observer(m_table.nbPoint(), observation);
        m_table.Ajouter(point);
        ++bilan.ajoutes;
    }

    void remplacer(int place, pointDuDessin& point, std::wstring& observation)
    {
        const listePointsDuDessin& lue = m_table;
        const AcDbObjectId symbole = lue.getData(place)->getId();
        if (estVerrouille(symbole)) { // a point elsewhere than its symbol would mislead
            ++bilan.verrouilles;
            return;
        }
        ++bilan.remplaces;
        observer(place, observation);
        bool dessine = false;
        if (symbole.isNull() || symbole.isErased())
            m_table.remplacerPoint(place, point);
        else
            enregistrerPoint(m_table, place, point, dessine);
    }

    listePointsDuDessin& m_table;
    nomsExistants m_choix;
    observationsEnAttente& m_observations;
    std::unordered_map<std::string, int> m_noms;
    int m_dernierNumero = 0;
};

} // namespace

int nombreNomsExistants(const listePointsDuDessin& table, std::span<const pointXYZ> points)
{
    if (table.nbPoint() == 0)
        return 0;
    const std::unordered_map<std::string, int> noms = nomsDe(table);
    return static_cast<int>(std::ranges::count_if(points, [&noms](const pointXYZ& lu) {
        pointDuDessin point;
        point = lu;
        return noms.contains(cleDuNom(point.getNomPoint()));
    }));
}

bilanAjout ajouterPoints(listePointsDuDessin& table, std::vector<pointXYZ> points, nomsExistants choix,
                         observationsEnAttente& observations)
{
    const CAcadUndoGroup groupe;
    ajout run(table, points, choix, observations);
    for (pointXYZ& lu : points)
        run.prendre(lu);
    return run.bilan;
}

std::vector<std::wstring> phrasesNoms(const bilanAjout& bilan)
{
    std::vector<std::wstring> phrases;
    if (bilan.nomsCoupes > 0)
        phrases.push_back(std::to_wstring(bilan.nomsCoupes) + L" nom(s) coupé(s) à " +
                          std::to_wstring(pointDuDessin::longueurNom) + L" caractères.");
    return phrases;
}

std::vector<pointDuDessin> pointsObserves(const listePointsDuDessin& table, const observationsEnAttente& observations)
{
    std::vector<pointDuDessin> observes;
    for (const auto& attente : observations)
        observes.push_back(*table.getData(attente.first));
    return observes;
}

observationsEnAttente observationsSuivies(const listePointsDuDessin& table, const observationsEnAttente& observations,
                                          std::span<const pointDuDessin> anciens)
{
    using place = std::tuple<double, double, double, int>;
    const auto placeDe = [](const pointDuDessin& p) { return place(p.getX(), p.getY(), p.getZ(), p.getCode()); };
    std::multimap<place, const std::wstring*> textes;
    for (auto ancien = anciens.begin(); const auto& attente : observations)
        textes.emplace(placeDe(*ancien++), &attente.second);
    observationsEnAttente suivies;
    for (int i = 0; i < table.nbPoint() && !textes.empty(); ++i)
        if (const auto texte = textes.find(placeDe(*table.getData(i))); texte != textes.end()) {
            suivies[i] = *texte->second;
            textes.erase(texte);
        }
    return suivies;
}
