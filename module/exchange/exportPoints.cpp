#include "exchange/exportPoints.h"

#include "exchange/colonnesFixes.h"
#include "reports/classesRapport.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/grandeur.h"
#include "services/lettres.h"

namespace {

/// Writes pieces of a few points each.
class sortie {
public:
    explicit sortie(fichierRemplace& fichier) : m_fichier(fichier) {}

    /// @return false once writing failed
    bool ajouter(std::string_view octets)
    {
        constexpr std::size_t bloc = 1 << 16;
        m_attente += octets;
        return m_attente.size() < bloc || vider();
    }

    bool vider()
    {
        const bool ecrit = m_fichier.ecrire(m_attente);
        m_attente.clear();
        return ecrit;
    }

private:
    fichierRemplace& m_fichier;
    std::string m_attente;
};

void ajouterCoordonnee(std::string& ligne, double valeur)
{
    ligne += '\t';
    ajouterNombreADroite(ligne, valeur, decimalesRapport, 15);
}

void ligneTexte(const pointExporte& p, std::string& ligne)
{
    ligne.clear();
    ajouterTexteADroite(ligne, p.nom, 10);
    ajouterCoordonnee(ligne, p.x);
    ajouterCoordonnee(ligne, p.y);
    if (p.z == inconnu) {
        ligne += '\t';
        ajouterTexteADroite(ligne, ".", 15);
    } else {
        ajouterCoordonnee(ligne, p.z);
    }
    ligne += '\t';
    ajouterTexteADroite(ligne, std::to_string(p.code), 5);
    ligne += '\n';
}

void exporterTexte(sortie& s, const pointSuivant& suivant)
{
    std::string ligne;
    for (pointExporte p; suivant(p);) {
        ligneTexte(p, ligne);
        if (!s.ajouter(ligne))
            return;
    }
}

void ajouterRangee(htmlTable& table, const pointExporte& p)
{
    table.beginRow();
    table.addCell(htmlEscaped(p.nom), celluleNomGauche);
    table.addCell(p.x, decimalesRapport, celluleNombre);
    table.addCell(p.y, decimalesRapport, celluleNombre);
    if (p.z == inconnu)
        table.addCell(celluleVide, celluleNombre);
    else
        table.addCell(p.z, decimalesRapport, celluleNombre);
    table.addCell(std::to_string(p.code), celluleNombre);
    table.endRow();
}

/// The page with a table that holds its headings only.
std::string pageVide()
{
    htmlDocument document;
    document.addHeadLine(htmlHeadWindows1252);
    document.addHeadLine("<title>Points du dessin</title>\n");
    declarerClassesRapport(document);
    htmlTable table = tableauRapport();
    table.beginRow();
    for (const char* const enTete : {"N\xB0", "X", "Y", "Z", "Code"})
        table.addCell(enTete, "CLASS=celgris");
    table.endRow();
    document.append(table.render());
    return document.text();
}

void exporterHtml(sortie& s, const pointSuivant& suivant)
{
    const std::string page = pageVide();
    const std::size_t finTable = page.rfind("</table>");
    s.ajouter(std::string_view(page).substr(0, finTable));
    htmlTable rangees;
    for (pointExporte p; suivant(p);) {
        ajouterRangee(rangees, p);
        if (!s.ajouter(rangees.takeRows()))
            return;
    }
    s.ajouter(std::string_view(page).substr(finTable));
}

} // namespace

formatExport formatDuFichier(const std::filesystem::path& fichier)
{
    const std::wstring extension = enMinuscules(depuisUtf8(fichier.extension().string()));
    if (extension == L".htm" || extension == L".html")
        return formatExport::html;
    return extension == L".xml" || extension == L".landxml" ? formatExport::landXml : formatExport::texte;
}

issueEcriture exporterPoints(const std::filesystem::path& fichier, formatExport format, const pointSuivant& suivant,
                             std::error_code* erreur)
{
    if (format == formatExport::landXml)
        return exporterLandXml(fichier, suivant, std::time(nullptr), erreur);
    const bool html = format == formatExport::html;
    fichierRemplace cible(fichier, html ? fichierRemplace::maniere::aCote : fichierRemplace::maniere::surPlace);
    sortie s(cible);
    (html ? exporterHtml : exporterTexte)(s, suivant);
    s.vider();
    const issueEcriture issue = cible.terminer();
    if (erreur)
        *erreur = cible.erreur();
    return issue;
}
