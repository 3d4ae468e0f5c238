#include "calculs/formules/fichierFormules.h"

#include <charconv>

#include "calculs/decouperLigne.h"
#include "calculs/lignesFichier.h"
#include "services/codages.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

std::string nombreCourt(double valeur)
{
    char tampon[32];
    return {tampon, std::to_chars(tampon, tampon + sizeof tampon, valeur).ptr};
}

std::string motCite(std::string texte)
{
    std::erase(texte, '"');
    return '"' + texte + '"';
}

namespace {

/// The word at a rank, or an empty one.
std::string mot(const std::vector<std::wstring>& mots, std::size_t rang)
{
    return rang < mots.size() ? versAnsi(mots[rang]) : std::string();
}

} // namespace

std::string contenuFormules(const formulesPoids& f)
{
    std::string texte;
    for (const auto& [genre, formule] :
         {std::pair{"angles", &f.angles}, std::pair{"gisements", &f.gisements}, std::pair{"distances", &f.distances}})
        if (!formule->empty())
            texte += std::string("Formule: ") + genre + " " + motCite(*formule) + "\n";
    for (const variableFormule& v : f.variables.variables())
        texte += "Variable: " + motCite(v.nom) + " " + nombreCourt(v.valeur) + " " + motCite(v.commentaire) + "\n";
    return texte;
}

bool lireLigneFormule(const std::vector<std::wstring>& mots, formulesPoids& formules)
{
    const std::wstring cle = enMinuscules(mots.front());
    if (cle == L"formule" && mots.size() >= 2) {
        const std::wstring genre = enMinuscules(mots[1]);
        std::string* const formule = genre == L"angles"      ? &formules.angles
                                     : genre == L"gisements" ? &formules.gisements
                                     : genre == L"distances" ? &formules.distances
                                                             : nullptr;
        if (formule)
            *formule = mot(mots, 2);
        return formule;
    }
    bool entier = false;
    const double valeur = mots.size() >= 3 ? reelDeTexte(mots[2], &entier) : 0.0;
    const std::string nom = mots.size() >= 3 ? nomDeVariable(versAnsi(mots[1])) : std::string();
    if (cle != L"variable" || !entier || nom.empty())
        return false;
    formules.variables.definir({nom, valeur, mot(mots, 3)});
    return true;
}

std::vector<remarqueLecture> lireFormules(std::string_view contenu, formulesPoids& formules)
{
    std::vector<remarqueLecture> remarques;
    std::vector<std::wstring> mots;
    lignesFichier lignes(contenu);
    for (std::string_view ligne; lignes.suivante(ligne);) {
        const std::wstring texte = lignes.texte(ligne);
        decouperLigne(texte, separateursPolygonale, mots);
        if (!mots.empty() && !lireLigneFormule(mots, formules))
            remarques.push_back({lignes.numero(), pasCompris(texte.substr(0, 60))});
    }
    return remarques;
}
