#include "exchange/exportCarte.h"

#include <array>
#include <random>

#include "codification/tableCodification.h"
#include "exchange/carte/ecrireCarte.h"
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
        std::error_code refus;
        m_cree = fs::create_directory(m_dossier, refus);
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
    bool sortir() const
    {
        std::error_code refus;
        for (const fs::directory_entry& fait : fs::directory_iterator(m_dossier, refus))
            if (fs::rename(fait.path(), m_dossier.parent_path() / fait.path().filename(), refus); refus)
                return false;
        return !refus;
    }

private:
    fs::path m_dossier;
    bool m_cree = false;
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
    const auto refuser = [&fichier](std::wstring raison) {
        return issueExport{issueEcriture::intact, depuisUtf8(fichier.filename().string()) + L" : " + std::move(raison)};
    };
    const auto ecrire = reinterpret_cast<ecrireCarte_t>(fonctionBibliotheque("libVelaCarte.so", nomEcrireCarte));
    if (!ecrire)
        return refuser(L"la bibliothèque des cartes (libVelaCarte.so) n'est pas installée.");
    const dossierProvisoire dossier(fichier);
    if (!dossier.cree())
        return refuser(L"écriture impossible dans ce dossier ; rien n'a été changé.");
    const auto pointSurLaCarte = [&](pointCarte& carte) {
        pointExporte p;
        if (!suivant(p))
            return false;
        carte = pointDeCarte(p, codes);
        return true;
    };
    std::string raison;
    ecrire((dossier.chemin() / fichier.filename()).string(), formatCarte(fichier), projection, pointSurLaCarte, raison);
    if (!raison.empty())
        return refuser(depuisUtf8(raison) + L" Rien n'a été changé.");
    if (!dossier.sortir())
        return refuser(L"écriture impossible ; le fichier n'a pas été changé.");
    return {issueEcriture::ecrit, {}};
}
