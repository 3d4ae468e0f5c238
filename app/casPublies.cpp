#include "casPublies.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>

#include "platform/CodePage.h"
#include "services/reelDeTexte.h"

#include "erreurProgramme.h"

namespace fs = std::filesystem;

namespace {

constexpr char nombreManquant[] = "il manque un nombre.";
constexpr char nomManquant[] = "il manque un nom.";
constexpr char motManquant[] = "il manque un mot.";

/// The words of a line, each asked for with what it stands for.
class motsDeLigne {
public:
    motsDeLigne(const std::string& ligne, std::string place) : m_flux(ligne), m_place(std::move(place)) {}

    [[noreturn]] void refuser(const std::string& raison) const { throw erreurProgramme(m_place + " : " + raison); }
    bool epuise() { return (m_flux >> std::ws).eof(); }
    /// @param absence what is said when there is no word left
    std::string mot(const char* absence)
    {
        std::string lu;
        if (!(m_flux >> lu))
            refuser(absence);
        return lu;
    }
    double nombre()
    {
        const std::string lu = mot(nombreManquant);
        double valeur = 0.0;
        const auto [fin, erreur] = std::from_chars(lu.data(), lu.data() + lu.size(), valeur);
        if (erreur != std::errc() || fin != lu.data() + lu.size())
            refuser(platform::utf8FromWide(pasUnNombre(platform::wideFromUtf8(lu))));
        return valeur;
    }
    std::vector<double> nombres()
    {
        std::vector<double> lus;
        while (!epuise())
            lus.push_back(nombre());
        if (lus.empty())
            refuser(nombreManquant);
        return lus;
    }
    std::string reste()
    {
        std::string texte;
        std::getline(m_flux >> std::ws, texte);
        return texte;
    }

private:
    std::istringstream m_flux;
    std::string m_place;
};

void lireLigne(const std::string& mot, motsDeLigne& ligne, const fs::path& dossier, casPublie& cas)
{
    if (mot == "source") {
        cas.source = ligne.reste();
    } else if (mot == "note") {
        cas.notes.push_back(ligne.reste());
    } else if (mot == "calcul") {
        cas.calcul = ligne.mot("il manque un calcul.");
    } else if (mot == "fichier") {
        cas.fichier = dossier / ligne.reste();
    } else if (mot == "couple") {
        casPublie::couple c{ligne.mot(nomManquant), 0.0, 0.0, 0.0, 0.0};
        for (double* const valeur : {&c.x, &c.y, &c.cibleX, &c.cibleY})
            *valeur = ligne.nombre();
        cas.couples.push_back(c);
    } else if (mot == "donnee") {
        const std::string nom = ligne.mot(motManquant);
        cas.donnees[nom] = ligne.nombres();
    } else if (mot == "attendu") {
        casPublie::attendu a;
        a.grandeur = ligne.mot("il manque une grandeur.");
        a.tolerance = ligne.nombre();
        a.valeurs = ligne.nombres();
        cas.attendus.push_back(std::move(a));
    } else {
        ligne.refuser("« " + mot + " » n'est pas un mot connu.");
    }
}

void lireFichier(const fs::path& chemin, std::vector<casPublie>& tous)
{
    std::ifstream flux(chemin);
    if (!flux)
        throw erreurProgramme(chemin.string() + " : ce fichier n'a pas pu être ouvert.");
    const std::size_t deja = tous.size();
    int numero = 0;
    for (std::string texte; std::getline(flux, texte);) {
        motsDeLigne ligne(texte, chemin.string() + ", ligne " + std::to_string(++numero));
        if (ligne.epuise() || texte.starts_with('#'))
            continue;
        if (const std::string mot = ligne.mot(motManquant); mot == "cas")
            tous.emplace_back().nom = ligne.mot(nomManquant);
        else if (tous.size() == deja)
            ligne.refuser("une ligne « cas » vient d'abord.");
        else
            lireLigne(mot, ligne, chemin.parent_path(), tous.back());
    }
    if (tous.size() == deja)
        throw erreurProgramme(chemin.string() + " : aucun cas.");
}

} // namespace

std::vector<casPublie> lireCasPublies(const fs::path& chemin)
{
    std::vector<casPublie> tous;
    if (!fs::is_directory(chemin)) {
        lireFichier(chemin, tous);
        return tous;
    }
    std::vector<fs::path> fichiers;
    for (const fs::directory_entry& entree : fs::directory_iterator(chemin))
        if (entree.path().extension() == ".txt")
            fichiers.push_back(entree.path());
    std::ranges::sort(fichiers);
    for (const fs::path& fichier : fichiers)
        lireFichier(fichier, tous);
    return tous;
}
