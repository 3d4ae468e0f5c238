#include "calculs/fichierPolygonale.h"

#include <algorithm>
#include <fstream>

#include "calculs/decouperLigne.h"
#include "calculs/lignesFichier.h"
#include "calculs/nivellement.h"
#include "calculs/observationPolygonale.h"
#include "calculs/uniteAngulaire.h"
#include "services/codages.h"
#include "services/formatNombres.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

namespace {

// --- Reading -------------------------------------------------------------------------------------------------------

using elementsLigne = std::vector<std::wstring>;

/// The first four letters, in lower case.
std::wstring motCle(const std::wstring& element)
{
    return enMinuscules(element.substr(0, 4));
}

/// The line being read, and what looks wrong in the file so far.
struct lecture {
    elementsLigne e;
    std::size_t numero = 0;
    bilanLecture bilan;
    bool depart = false, arrivee = false, fermeture = false; ///< whether such a line has come

    void remarquer(std::wstring phrase)
    {
        if (bilan.remarques.size() < remarquesGardees)
            bilan.remarques.push_back({numero, std::move(phrase)});
    }

    /// A keyword that says nothing to this kind of traverse.
    void remarquerMotCle() { remarquer(L"mot-clé « " + e[0] + L" » sans effet."); }

    /// The number that follows the key at `cle`.
    double nombre(std::size_t cle)
    {
        if (std::wstring remarque = remarqueNombre(e[cle], e[cle + 1]); !remarque.empty())
            remarquer(std::move(remarque));
        return reelDeTexte(e[cle + 1]);
    }
};

/// Remarks that a word does not begin as the one that is taken for it.
void remarquerMot(lecture& l, const wchar_t* pris)
{
    if (minuscule(l.e[1].front()) != minuscule(pris[0]))
        l.remarquer(l.e[0] + L" « " + l.e[1] + L" » inconnu, « " + pris + L" » est pris.");
}

/// The keywords that both kinds of traverse have. @return whether it is one of them
bool lireMotCleCommun(lecture& l, int& unite, int& nivellement)
{
    const std::wstring mot = motCle(l.e[0]);
    if (mot == L"angl") {
        unite = uniteAngulaireDe(l.e[1].front());
        remarquerMot(l, motUniteAngulaire(unite));
    } else if (mot == L"nive") {
        nivellement = nivellementDe(l.e[1].front());
        remarquerMot(l, motNivellement(nivellement));
    } else {
        return false;
    }
    return true;
}

void lireMotCle(lecture& l, donneesPolygonaleFermee& donnees)
{
    if (!lireMotCleCommun(l, donnees.unite, donnees.nivellement))
        l.remarquerMotCle();
}

void lireMotCle(lecture& l, donneesPolygonaleOuverte& donnees)
{
    if (lireMotCleCommun(l, donnees.unite, donnees.nivellement))
        return;
    if (motCle(l.e[0]) != L"ferm")
        return l.remarquerMotCle();
    donnees.fermeture = l.nombre(0);
    l.fermeture = true;
}

/// Stores the number of a key X, Y, Z or G; any other key is left alone.
void lireCoordonnee(lecture& l, std::size_t cle, stationPolygonale& station)
{
    switch (minuscule(l.e[cle].front())) {
    case L'x':
        station.x = l.nombre(cle);
        break;
    case L'y':
        station.y = l.nombre(cle);
        break;
    case L'z':
        station.z = l.nombre(cle);
        break;
    case L'g':
        station.gisement = l.nombre(cle);
        break;
    default:
        break;
    }
}

/// Of a station line: whether one of its keys begins so.
bool aCle(const elementsLigne& e, wchar_t cle)
{
    for (std::size_t i = 0; i < e.size(); i += 2)
        if (minuscule(e[i].front()) == cle)
            return true;
    return false;
}

/// A number that the line leaves out keeps what an earlier station line gave.
void lireStation(lecture& l, donneesPolygonaleFermee& donnees)
{
    for (std::size_t i = 0; i < l.e.size(); i += 2)
        if (minuscule(l.e[i].front()) == L'n')
            donnees.depart.nom = l.e[i + 1];
        else
            lireCoordonnee(l, i, donnees.depart);
    l.depart = true;
}

/// A number that the line leaves out becomes 0. A line with neither key is a departure line, one with both an arrival
/// line.
void lireStation(lecture& l, donneesPolygonaleOuverte& donnees)
{
    stationPolygonale lue;
    bool ligneArrivee = false;
    for (std::size_t i = 0; i < l.e.size(); i += 2) {
        const wchar_t cle = minuscule(l.e[i].front());
        if (cle == L'd') {
            donnees.depart.nom = l.e[i + 1];
        } else if (cle == L'a') {
            donnees.arrivee.nom = l.e[i + 1];
            ligneArrivee = true;
        } else {
            lireCoordonnee(l, i, lue);
        }
    }
    stationPolygonale& station = ligneArrivee ? donnees.arrivee : donnees.depart;
    lue.nom = station.nom;
    station = lue;
    (ligneArrivee ? l.arrivee : l.depart) = true;
}

/// Each kind of file has its own word for the departure.
void remarquerAutreGenre(lecture& l, const stationPolygonale& depart, const wchar_t* autreGenre)
{
    if (l.depart && depart.nom.empty())
        l.remarquer(L"la station de départ n'a pas de nom ; ce fichier est-il celui d'une polygonale " +
                    std::wstring(autreGenre) + L" ?");
}

void remarquerManques(lecture& l, const donneesPolygonaleFermee& donnees)
{
    if (!l.depart)
        l.remarquer(L"aucune ligne de station : le départ est en 0, 0, de gisement 0.");
    remarquerAutreGenre(l, donnees.depart, L"ouverte");
}

void remarquerManques(lecture& l, const donneesPolygonaleOuverte& donnees)
{
    if (!l.depart)
        l.remarquer(L"aucune ligne « Depart » : le départ est en 0, 0, de gisement 0.");
    remarquerAutreGenre(l, donnees.depart, L"fermée");
    if (!l.arrivee)
        l.remarquer(L"aucune ligne « Arrivee » : l'arrivée est en 0, 0, de gisement 0.");
    if (!l.fermeture)
        l.remarquer(L"aucune ligne « Fermeture » : le dernier angle reste " + formaterFixe(donnees.fermeture, 4) +
                    L".");
}

void vider(donneesPolygonaleFermee& donnees)
{
    donnees.depart = {};
    donnees.lignes.clear();
}

void vider(donneesPolygonaleOuverte& donnees)
{
    donnees.depart = {};
    donnees.arrivee = {};
    donnees.lignes.clear();
}

/// What a station line has: five keys, five values.
constexpr std::size_t elementsStation = 10;

template <class Donnees>
void lireElements(lecture& l, Donnees& donnees)
{
    const std::size_t nombre = l.e.size();
    if (nombre == 2) {
        lireMotCle(l, donnees);
    } else if (nombre == 4) {
        donnees.lignes.push_back({std::move(l.e[0]), std::move(l.e[1]), std::move(l.e[2]), std::move(l.e[3])});
    } else if (nombre == elementsStation) {
        l.bilan.stations += aCle(l.e, L'x') && aCle(l.e, L'y') ? 1 : 0;
        lireStation(l, donnees);
    } else if (nombre > 0) {
        ++l.bilan.ignorees;
        l.remarquer(L"ligne ignorée, " + std::to_wstring(nombre) +
                    L" élément(s) au lieu de 2 (mot-clé), 4 (observation) ou 10 (station).");
    }
}

/// A longer line is read in pieces of this size, each as a line of its own.
constexpr std::size_t longueurLigne = 1023;

/// Ends the line at a zero byte, as text files are read.
std::string_view sansFin(std::string_view ligne)
{
    const std::size_t zero = ligne.find('\0');
    ligne = ligne.substr(0, zero);
    if (zero != std::string_view::npos && ligne.ends_with('\r'))
        ligne.remove_suffix(1);
    return ligne;
}

/// Characters beyond 16 bits, which not every platform holds, are none.
std::wstring court(std::wstring texte)
{
    std::ranges::replace_if(
        texte, [](wchar_t c) { return c > 0xFFFF; }, L'?');
    return texte;
}

template <class Donnees>
bilanLecture lireContenu(std::string_view contenu, Donnees& donnees)
{
    vider(donnees);
    lecture l;
    lignesFichier lignes(contenu);
    for (std::string_view ligne; lignes.suivante(ligne);) {
        l.numero = lignes.numero();
        ligne = sansFin(ligne);
        do {
            const std::string_view morceau = ligne.substr(0, longueurLigne);
            decouperLigne(court(lignes.texte(morceau)), separateursPolygonale, l.e);
            lireElements(l, donnees);
            ligne.remove_prefix(morceau.size());
        } while (!ligne.empty());
    }
    l.numero = 0;
    remarquerManques(l, donnees);
    return std::move(l.bilan);
}

// --- Files ---------------------------------------------------------------------------------------------------------

template <class Donnees>
bilanLecture chargerFichier(const std::filesystem::path& fichier, Donnees& donnees)
{
    std::ifstream flux(fichier, std::ios::binary);
    std::string contenu;
    std::vector<char> bloc(1 << 16);
    while (flux.read(bloc.data(), static_cast<std::streamsize>(bloc.size())), flux.gcount() > 0)
        contenu.append(bloc.data(), static_cast<std::size_t>(flux.gcount()));
    // A folder opens as a file on some systems; only reading it fails.
    if (!flux.is_open() || flux.bad())
        return {.lisible = false, .stations = 0, .ignorees = 0, .remarques = {}};
    return lireContenu(contenu, donnees);
}

} // namespace

bilanLecture lirePolygonale(std::string_view contenu, donneesPolygonaleFermee& donnees)
{
    return lireContenu(contenu, donnees);
}

bilanLecture lirePolygonale(std::string_view contenu, donneesPolygonaleOuverte& donnees)
{
    return lireContenu(contenu, donnees);
}

bilanLecture chargerPolygonale(const std::filesystem::path& fichier, donneesPolygonaleFermee& donnees)
{
    return chargerFichier(fichier, donnees);
}

bilanLecture chargerPolygonale(const std::filesystem::path& fichier, donneesPolygonaleOuverte& donnees)
{
    return chargerFichier(fichier, donnees);
}

std::vector<std::wstring> avertissementsLecture(std::wstring_view fichier, const bilanLecture& bilan)
{
    const std::wstring nom(fichier);
    if (!bilan.lisible)
        return {nom + L" : lecture impossible du fichier."};
    std::vector<std::wstring> phrases;
    for (const remarqueLecture& r : bilan.remarques)
        phrases.push_back(nom + (r.numero > 0 ? L", ligne " + std::to_wstring(r.numero) : L"") + L" : " + r.phrase);
    return phrases;
}

std::wstring nomComplet(std::wstring_view choisi, int filtre)
{
    std::wstring nom(choisi);
    const auto completer = [&nom](std::wstring_view extension) {
        if (!enMinuscules(nom).ends_with(extension))
            nom += extension;
    };
    if (filtre == filtreObservations)
        completer(L".obs");
    else if (filtre == filtreSansExtension || filtre == filtreTous)
        completer(L".");
    else if (filtre == filtreTexte)
        completer(L".txt");
    if (nom.find(L'.') == std::wstring::npos)
        nom += L".obs";
    return nom;
}

std::wstring nomEnregistrement(std::wstring_view choisi, int filtre)
{
    const std::wstring nom = nomComplet(choisi, filtre);
    const std::size_t fichier = nom.find_last_of(L"/\\") + 1; // 0 without a folder
    return nom.substr(0, fichier) + enMinuscules(nom.substr(fichier));
}
