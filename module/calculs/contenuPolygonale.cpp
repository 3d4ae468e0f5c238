#include <algorithm>
#include <cmath>
#include <set>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/decouperLigne.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/nivellement.h"
#include "calculs/observationPolygonale.h"
#include "calculs/uniteAngulaire.h"
#include "services/codages.h"
#include "services/nombreFixe.h"

/// The writing of traverse files, and what they cannot keep.

namespace {

constexpr wchar_t commentaireAngles[] = L"* Unités angulaires\n"
                                        L"* Syntaxe: \n"
                                        L"* Angles : <unité de mesure des angles>\n"
                                        // The missing word ("peut") and the next misspelling are intended: files
                                        // already on disk carry them, and users compare files.
                                        L"* Avec <unité de mesure des angles> qui être :\n"
                                        L"* Grades Degres ou Radians\n";

constexpr wchar_t commentaireNivellement[] =
    L"* Mode de calcul du nivellement\n"
    L"* Syntaxe: \n"
    L"* Nivellement: <Mode de nivellement>\n"
    L"* Avec <Mode de nivellement> qui peut être\n"
    L"* \taucun\tPour aucune compensation sur les alitutudes\n"
    L"* \tsimple\tPour une compensation simple\n"
    L"* \tdistance\tPour une compensation proportionnelle aux distances entre stations\n"
    L"* \tracine\tPour une compensation proportionnelle aux racines des distances\n";

constexpr wchar_t enTeteDepart[] = L"* Station de depart\n";
constexpr wchar_t enTeteDonnees[] = L"* Données de la polygonale\n"
                                    L"* Nom Station\t\tAngle\t\tDistance\t\tDz\n";

constexpr std::size_t longueurCellule = 510;

/// The formatted lines begin with line feeds of their own, which show as empty lines.
class redacteur {
public:
    void texte(std::wstring_view t) { m_octets += versAnsi(t); }

    void station(std::wstring_view cle, const stationPolygonale& s)
    {
        texte(L"\n");
        texte(cle);
        texte(L"=\"" + s.nom + L"\" X= ");
        m_octets += nombreFixe(s.x, 5) + " Y= " + nombreFixe(s.y, 5) + " Z= " + nombreFixe(s.z, 5) +
                    " Gis= " + nombreFixe(s.gisement, 5) + "\n";
    }

    void fermeture(double angle) { m_octets += "\nFermeture: " + nombreFixe(angle, 4) + "\n"; }

    void angles(int unite)
    {
        texte(commentaireAngles);
        texte(std::wstring(L"\n\nAngles: ") + motUniteAngulaire(unite) + L"\n");
    }

    void nivellement(int mode)
    {
        texte(commentaireNivellement);
        texte(std::wstring(L"\n\nNivellement: ") + motNivellement(mode) + L"\n");
    }

    void lignes(const std::vector<ligneObservation>& observations)
    {
        for (const ligneObservation& l : observations) {
            texte(L"\n\"" + l.station.substr(0, longueurNomStation) + L"\"\t");
            texte(L"\t\t" + l.angle.substr(0, longueurCellule));
            texte(L"\t" + l.distance.substr(0, longueurCellule));
            texte(L"\t\t" + l.altitude.substr(0, longueurCellule) + L"\n");
        }
    }

    std::string octets() && { return std::move(m_octets); }

private:
    std::string m_octets;
};

// --- What is lost --------------------------------------------------------------------------------------------------

bool contientGuillemet(const std::wstring& nom)
{
    return nom.find(L'"') != std::wstring::npos;
}

/// The station's line is understood with all of its ten elements only.
void remarquerStation(const wchar_t* role, const stationPolygonale& s, std::vector<std::wstring>& phrases)
{
    const wchar_t* faute = s.nom.empty() ? L"est vide" : contientGuillemet(s.nom) ? L"contient un guillemet" : nullptr;
    if (faute)
        phrases.push_back(L"Station " + std::wstring(role) + L" : son nom " + faute +
                          L" ; ses coordonnées et son gisement ne pourront pas être relus.");
    const auto finis = [](std::initializer_list<double> valeurs) {
        return std::ranges::all_of(valeurs, [](double v) { return std::isfinite(v); });
    };
    if (!finis({s.x, s.y, s.z, s.gisement}))
        phrases.push_back(L"Station " + std::wstring(role) +
                          L" : une valeur n'est pas un nombre fini ; elle sera relue comme 0.");
}

void remarquerLignes(const std::vector<ligneObservation>& lignes, std::vector<std::wstring>& phrases)
{
    // Of the cells only the name stands between quotes: separators in the others cut them in pieces.
    const auto nomPerdu = [](const std::wstring& nom) { return nom.empty() || contientGuillemet(nom); };
    const auto cellulePerdue = [](const std::wstring& cellule) {
        return cellule.empty() || cellule.find_first_of(separateursPolygonale) != std::wstring::npos;
    };
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        const ligneObservation& l = lignes[i];
        if (nomPerdu(l.station) || cellulePerdue(l.angle) || cellulePerdue(l.distance) || cellulePerdue(l.altitude))
            phrases.push_back(
                L"Ligne " + std::to_wstring(i + 1) +
                L" : une cellule est vide ou contient un séparateur ; la ligne ne pourra pas être relue.");
    }
}

/// A name may stand in several places: what becomes of it is told once.
void ajouter(const std::vector<std::wstring>& autres, std::vector<std::wstring>& phrases)
{
    std::set<std::wstring> dites(phrases.begin(), phrases.end());
    for (const std::wstring& phrase : autres)
        if (dites.insert(phrase).second)
            phrases.push_back(phrase);
}

constexpr wchar_t dansLeFichier[] = L"dans le fichier";

void remarquerNomsDesLignes(const std::vector<ligneObservation>& lignes, std::vector<std::wstring>& phrases)
{
    std::vector<std::wstring> noms;
    for (const ligneObservation& l : lignes)
        noms.push_back(l.station);
    ajouter(avertissementsNoms(noms, longueurNomStation, dansLeFichier), phrases);
}

} // namespace

std::string contenuPolygonale(const donneesPolygonaleFermee& donnees)
{
    redacteur r;
    r.texte(L"* Fichier de données pour calcul de polygonale Fermée\n\n");
    r.texte(enTeteDepart);
    r.station(L"Nom", donnees.depart);
    r.angles(donnees.unite);
    r.nivellement(donnees.nivellement);
    r.texte(enTeteDonnees);
    r.lignes(donnees.lignes);
    return std::move(r).octets();
}

std::string contenuPolygonale(const donneesPolygonaleOuverte& donnees)
{
    redacteur r;
    r.texte(L"* Fichier de données pour calcul de polygonale Ouverte\n");
    r.texte(enTeteDepart);
    r.station(L"Depart", donnees.depart);
    r.station(L"Arrivee", donnees.arrivee);
    r.fermeture(donnees.fermeture);
    r.angles(donnees.unite);
    r.nivellement(donnees.nivellement);
    r.texte(std::wstring(L"\n") + enTeteDonnees);
    // The levelling section and the heading stand twice, intended: files already on disk have both.
    r.texte(L"\n");
    r.nivellement(donnees.nivellement);
    r.texte(std::wstring(L"\n") + enTeteDonnees);
    r.lignes(donnees.lignes);
    return std::move(r).octets();
}

std::vector<std::wstring> avertissementsEcriture(const donneesPolygonaleFermee& donnees)
{
    std::vector<std::wstring> phrases;
    remarquerStation(L"de départ", donnees.depart, phrases);
    ajouter(avertissementsNoms({donnees.depart.nom}, std::wstring::npos, dansLeFichier), phrases);
    remarquerLignes(donnees.lignes, phrases);
    remarquerNomsDesLignes(donnees.lignes, phrases);
    return phrases;
}

std::vector<std::wstring> avertissementsEcriture(const donneesPolygonaleOuverte& donnees)
{
    std::vector<std::wstring> phrases;
    remarquerStation(L"de départ", donnees.depart, phrases);
    remarquerStation(L"d'arrivée", donnees.arrivee, phrases);
    ajouter(avertissementsNoms({donnees.depart.nom, donnees.arrivee.nom}, std::wstring::npos, dansLeFichier), phrases);
    remarquerLignes(donnees.lignes, phrases);
    remarquerNomsDesLignes(donnees.lignes, phrases);
    return phrases;
}
