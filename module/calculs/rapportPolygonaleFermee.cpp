#include "calculs/rapportPolygonaleFermee.h"

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/rapportPolygonale.h"
#include "reports/nombreFixe.h"

using namespace rapportPolygonale;

namespace {

/// Names of the rows, ready for the report; `avant` counts rows backwards around the loop.
class nomsLignes {
public:
    explicit nomsLignes(const std::vector<viseeFermee>& visees)
    {
        m_noms.reserve(visees.size());
        for (const viseeFermee& v : visees)
            m_noms.push_back(nomHtml(v.observation.nom));
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
    ajouterGrandTitre(document, L"Corrections de fermeture polygonale");
    ajouterTitre(document, L"Données");
    // Six decimals for the altitude, where the others have four: intended, users compare reports.
    ajouterParagraphe(document, "\r\nStation de d\xE9part : " + nomHtml(d.nom) + "\tX=" + nombreFixe(d.x, decimales) +
                                    "\tY=" + nombreFixe(d.y, decimales) + "\tZ=" + nombreFixe(d.z, 6) +
                                    "\tVo=" + nombreFixe(d.gisement, decimales));

    ajouterTitre(document, L"Observations");
    htmlTable table = tableau({L"Station", L"Vise", L"Angle", L"Distance", L"Altitude"});
    for (std::size_t i = 0; i < r.visees.size(); ++i) {
        const observationPolygonale& o = r.visees[i].observation;
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
    for (std::size_t i = 0; i < r.visees.size(); ++i) {
        const viseeFermee& v = r.visees[i];
        noms.ouvrirLigne(table, i);
        for (const double valeur :
             {v.observation.angle, v.interieur, v.interieurCorrige, v.exterieurCorrige, v.gisement})
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
    for (std::size_t i = 0; i < r.visees.size(); ++i) {
        const viseeFermee& v = r.visees[i];
        noms.ouvrirLigne(table, i);
        for (const double valeur : {v.gisement, v.observation.distance, v.dx, v.dy, v.dxCorrige, v.dyCorrige, v.x, v.y})
            ajouterNombre(table, valeur);
    }
    ouvrirTotal(table, "Somme");
    for (const double valeur : {r.longueur, r.fermetureX, r.fermetureY})
        ajouterNombre(table, valeur);
    ajouterVides(table, 4);
    document.append(table.render());
}

void rapporterNivellement(const resultatPolygonaleFermee& r, const nomsLignes& noms, htmlDocument& document)
{
    if (!ajouterTitreNivellement(document, r.mode))
        return;
    const bool avecPoids = r.mode != nivellementSimple;
    htmlTable table = tableau({L"Réf", L"Station", L"Vise", L"X", L"Y", L"d.Z"});
    if (avecPoids)
        ajouterEnTete(table, r.mode == nivellementDistance ? L"Distance" : L"Racine.dist");
    for (const std::wstring_view enTete : {L"Correction", L"d.Z Corrigé", L"Z"})
        ajouterEnTete(table, enTete);

    for (std::size_t i = 0; i < r.visees.size(); ++i) {
        const viseeFermee& v = r.visees[i];
        const deniveleeCompensee& d = r.nivellement.denivelees[i];
        noms.ouvrirLigne(table, i);
        for (const double valeur : {v.x, v.y, v.observation.dz})
            ajouterNombre(table, valeur);
        if (avecPoids)
            ajouterNombre(table, d.poids);
        for (const double valeur : {d.correction, d.dz, d.z})
            ajouterNombre(table, valeur);
    }
    ouvrirTotal(table, "Total");
    ajouterVides(table, 1);
    ajouterNombre(table, r.nivellement.sommeDz);
    if (avecPoids)
        ajouterNombre(table, r.nivellement.sommePoids);
    ajouterNombre(table, r.nivellement.sommeCorrections);
    ajouterNombre(table, r.nivellement.sommeDzCorriges);
    ajouterVides(table, 1);
    document.append(table.render());
}

void rapporterCoordonnees(const resultatPolygonaleFermee& r, htmlDocument& document)
{
    ajouterTitre(document, L"Coordonnées finales");
    htmlTable table = tableau({L"Station", L"X", L"Y", L"Z"});
    for (const stationCorrigee& s : r.stations) {
        table.beginRow();
        table.addCell(nomHtml(s.nom), celluleNomGauche);
        for (const double valeur : {s.x, s.y, s.z})
            ajouterNombre(table, valeur);
    }
    document.append(table.render());
}

} // namespace

void rapporterPolygonaleFermee(const resultatPolygonaleFermee& resultat, htmlDocument& document)
{
    const nomsLignes noms(resultat.visees);
    declarerClasses(document);
    rapporterDonnees(resultat, noms, document);
    rapporterAngles(resultat, noms, document);
    rapporterDistances(resultat, noms, document);
    rapporterNivellement(resultat, noms, document);
    rapporterCoordonnees(resultat, document);
}
