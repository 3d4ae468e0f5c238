#include "exchange/exportCarte.h"

#include <array>
#include <random>
#include <vector>

#include "codification/tableCodification.h"
#include "exchange/carte/ecrireCarte.h"
#include "exchange/fichierRemplace.h"
#include "services/bibliothequeModule.h"
#include "services/codages.h"
#include "services/grandeur.h"
#include "services/lettres.h"

namespace fs = std::filesystem;

namespace {

std::string utf8De(std::string_view ansi)
{
    return versUtf8(depuisAnsi(ansi));
}

pointCarte pointDeCarte(const pointExporte& p, const tableCodification& codes)
{
    const int index = codes.indexCode(p.code);
    const bool connue = p.z != inconnu;
    return {utf8De(p.nom),
            index < 0 ? std::string() : versUtf8(codes[index].libelle),
            utf8De(p.observation),
            p.x,
            p.y,
            connue ? p.z : 0.0,
            connue,
            p.code};
}

/// A folder beside the file, removed with what is left in it. A map may be several files: they are made there, and go
/// to their place together once they are whole.
class dossierProvisoire {
public:
    explicit dossierProvisoire(const fs::path& fichier)
    {
        std::random_device hasard;
        m_dossier = fs::absolute(fichier).parent_path() / (".vela-" + std::to_string(hasard()));
        m_cree = fs::create_directory(m_dossier, m_erreur);
    }
    ~dossierProvisoire()
    {
        std::error_code sansSuite;
        if (m_cree)
            fs::remove_all(m_dossier, sansSuite);
    }
    dossierProvisoire(const dossierProvisoire&) = delete;
    dossierProvisoire& operator=(const dossierProvisoire&) = delete;

    bool cree() const { return m_cree; }
    const fs::path& chemin() const { return m_dossier; }
    /// Moves all that was made to its place; nothing of it where what stands there is not to be replaced.
    issueEcriture sortir()
    {
        std::vector<fs::path> faits;
        for (const fs::directory_entry& fait : fs::directory_iterator(m_dossier, m_erreur)) {
            if (const std::error_code refus = refusDeRemplacer(place(fait)))
                m_erreur = refus;
            faits.push_back(fait.path());
        }
        for (const fs::path& fait : faits) {
            if (!m_erreur)
                fs::rename(fait, place(fait), m_erreur);
            if (m_erreur)
                return fs::exists(faits.front()) ? issueEcriture::intact : issueEcriture::abime;
        }
        return issueEcriture::ecrit;
    }
    /// Why the folder was not made, or what it holds did not go out.
    std::error_code erreur() const { return m_erreur; }

private:
    fs::path place(const fs::path& fait) const { return m_dossier.parent_path() / fait.filename(); }

    fs::path m_dossier;
    bool m_cree = false;
    std::error_code m_erreur;
};

} // namespace

const char* formatCarte(const fs::path& fichier)
{
    struct format {
        std::wstring_view extension;
        const char* nom;
    };
    static constexpr std::array<format, 5> formats{{{L".geojson", "GeoJSON"},
                                                    {L".json", "GeoJSON"},
                                                    {L".gpkg", "GPKG"},
                                                    {L".kml", "KML"},
                                                    {L".shp", "ESRI Shapefile"}}};
    const std::wstring extension = enMinuscules(depuisUtf8(fichier.extension().string()));
    for (const format& f : formats)
        if (f.extension == extension)
            return f.nom;
    return nullptr;
}

issueExport exporterCarte(const fs::path& fichier, const std::string& projection, const tableCodification& codes,
                          const pointSuivant& suivant)
{
    const std::wstring nom = depuisUtf8(fichier.filename().string());
    const auto refuser = [&nom](const std::wstring& raison) {
        return issueExport{issueEcriture::intact, nom + L" : " + raison};
    };
    const auto ecrire = reinterpret_cast<ecrireCarte_t>(fonctionBibliotheque("libVelaCarte.so", nomEcrireCarte));
    if (!ecrire)
        return refuser(L"la bibliothèque des cartes (libVelaCarte.so) n'est pas installée.");
    const fs::path cible = fichierDuLien(fichier);
    dossierProvisoire dossier(cible);
    if (!dossier.cree())
        return {issueEcriture::intact, phraseEcriture(nom, issueEcriture::intact, dossier.erreur())};
    int sansPlace = 0;
    const auto pointSurLaCarte = [&](pointCarte& carte) {
        pointExporte p;
        while (suivant(p)) {
            if (estConnue(p.x) && estConnue(p.y)) {
                carte = pointDeCarte(p, codes);
                return true;
            }
            ++sansPlace;
        }
        return false;
    };
    std::string raison;
    ecrire((dossier.chemin() / cible.filename()).string(), formatCarte(fichier), projection, pointSurLaCarte, raison);
    if (!raison.empty())
        return refuser(depuisUtf8(raison) + L" Rien n'a été changé.");
    const issueEcriture issue = dossier.sortir();
    return {issue, phraseEcriture(nom, issue, dossier.erreur()), sansPlace};
}
