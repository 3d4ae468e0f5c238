#include "calculs/rapportPolygonaleFermee.h"

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/rapportPolygonale.h"
#include "services/nombreFixe.h"

using namespace rapportPolygonale;

namespace {

/// Names of the rows, ready for the report; `avant` counts rows backwards around the loop.
class nomsLignes {
public:
    explicit nomsLignes(const std::vector<cotePolygonale>& cotes)
    {
        m_noms.reserve(cotes.size());
        for (const cotePolygonale& c : cotes)
            m_noms.push_back(nomHtml(c.observation.nom));
    }

    const std::string& avant(std::size_t ligne, std::size_t rang) const
    {
        const std::size_t n = m_noms.size();
        return m_noms[(ligne + n - rang % n) % n];
    }

    /// Opens the row of a sight with its three names: the station behind, the station, the sighted one.
    void ouvrirLigne(htmlTable& table, std::size_t ligne) const
    {
        table.beginRow();
        for (const std::size_t rang : {2u, 1u, 0u})
            table.addCell(avant(ligne, rang), celluleNomGauche);
    }

private:
    std::vector<std::string> m_noms;
};

/// Opens a row of sums with its label over the first four columns.
void ouvrirTotal(htmlTable& table, std::string_view libelle)
{
    table.beginRow();
    table.addCell(libelle, celluleLibelle4Colonnes);
}

void rapporterDonnees(const resultatPolygonaleFermee& r, const nomsLignes& noms, htmlDocument& document)
{
    const stationPolygonale& d = r.depart;
    ouvrirRapport(document);
    // Six decimals for the altitude, where the others have four: intended, users compare reports.
    ajouterParagraphe(document, "\r\nStation de d\xE9part : " + nomHtml(d.nom) + "\tX=" +
                                    nombreFixe(d.x, decimalesRapport) + "\tY=" + nombreFixe(d.y, decimalesRapport) +
                                    "\tZ=" + nombreFixe(d.z, 6) + "\tVo=" + nombreFixe(d.gisement, decimalesRapport));

    ajouterTitre(document, L"Observations");
    htmlTable table = tableau({L"Station", L"Vise", L"Angle", L"Distance", L"Altitude"});
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const observationPolygonale& o = r.cotes[i].observation;
        table.beginRow();
        table.addCell(noms.avant(i, 1), celluleNomCentre);
        table.addCell(noms.avant(i, 0), celluleNomCentre);
        for (const double valeur : {o.angle, o.distance, o.dz})
            ajouterNombre(table, valeur);
    }
    document.append(table.render());
}

void rapporterAngles(const resultatPolygonaleFermee& r, const nomsLignes& noms, htmlDocument& document)
{
    ajouterTitre(document, L"Fermeture Angulaire");
    ajouterParagraphe(document, "\r\nErreur angulaire=" + nombreFixe(r.erreurAngulaire, 5));
    ajouterParagraphe(document, "\r\nCorrection angulaire=" + nombreFixe(r.correctionAngulaire, 5));

    htmlTable table = tableau(
        {L"Réf", L"Station", L"Vise", L"Ang Ext", L"Ang Int", L"Ang Int Corr", L"Ang Ext Corr", L"Gisement Corr"});
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const angleFerme& a = r.angles[i];
        const cotePolygonale& c = r.cotes[i];
        noms.ouvrirLigne(table, i);
        for (const double valeur :
             {c.observation.angle, a.interieur, a.interieurCorrige, a.exterieurCorrige, c.gisement})
            ajouterNombre(table, valeur);
    }
    const auto total = [&table](std::string_view libelle, double valeur) {
        ouvrirTotal(table, libelle);
        ajouterNombre(table, valeur);
        ajouterVides(table, 3);
    };
    total("Somme", r.sommeInterieurs);
    total("Erreur", r.erreurAngulaire);
    total("Correction", r.correctionAngulaire);
    document.append(table.render());
}

void rapporterDistances(const resultatPolygonaleFermee& r, const nomsLignes& noms, htmlDocument& document)
{
    ajouterTitre(document, L"Correction des distances");
    htmlTable table = tableau({L"Réf", L"Station", L"Vise", L"Gis. Corrigé", L"Distance", L"Dx", L"Dy", L"Dx corrigé",
                               L"Dy corrigé", L"X", L"Y"});
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const cotePolygonale& c = r.cotes[i];
        noms.ouvrirLigne(table, i);
        for (const double valeur : {c.gisement, c.observation.distance, c.dx, c.dy, c.dxCorrige, c.dyCorrige, c.x, c.y})
            ajouterNombre(table, valeur);
    }
    ouvrirTotal(table, "Somme");
    for (const double valeur : {r.longueur, r.sommeX, r.sommeY})
        ajouterNombre(table, valeur);
    ajouterVides(table, 4);
    document.append(table.render());
}

void rapporterNivellement(const resultatPolygonaleFermee& r, const nomsLignes& noms, htmlDocument& document)
{
    if (!ajouterTitreNivellement(document, r.mode))
        return;
    htmlTable table = tableau({L"Réf", L"Station", L"Vise", L"X", L"Y", L"d.Z"});
    const bool avecPoids = ajouterEnTetesNivellement(table, r.mode);
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const cotePolygonale& c = r.cotes[i];
        noms.ouvrirLigne(table, i);
        for (const double valeur : {c.x, c.y, c.observation.dz})
            ajouterNombre(table, valeur);
        ajouterDenivelee(table, r.nivellement.denivelees[i], avecPoids);
    }
    ouvrirTotal(table, "Total");
    ajouterVides(table, 1);
    ajouterSommesNivellement(table, r.nivellement, avecPoids);
    document.append(table.render());
}

} // namespace

void rapporterPolygonale(const resultatPolygonaleFermee& resultat, htmlDocument& document)
{
    const nomsLignes noms(resultat.cotes);
    declarerClassesRapport(document);
    rapporterDonnees(resultat, noms, document);
    rapporterAngles(resultat, noms, document);
    rapporterDistances(resultat, noms, document);
    rapporterNivellement(resultat, noms, document);
    ajouterTitre(document, L"Coordonnées finales");
    ajouterCoordonnees(document, resultat.stations);
}
