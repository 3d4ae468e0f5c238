#include <fstream>
#include <iterator>

#include "calculs/decouperLigne.h"
#include "calculs/lignesFichier.h"
#include "calculs/reseau/fichierReseau.h"
#include "calculs/uniteAngulaire.h"
#include "services/codages.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

namespace {

using enum genreObservation;

/// A bearing that is held: a hundredth of a ten-thousandth of a grade.
constexpr double ecartGisementTenu = 0.01 * dmgrEnRadians;

class traducteur {
public:
    traducteur(reseau& r, int unite) : m_r(r), m_demiTour(tourComplet(unite) / 2.0)
    {
        m_r.precisions = precisionsUsuelles();
    }

    /// @param sansNom what a station without a name is called
    int fixer(const stationPolygonale& s, bool altitude, const std::wstring& sansNom)
    {
        const int place = m_r.point(s.nom.empty() ? sansNom : s.nom);
        pointReseau& p = m_r.points[static_cast<std::size_t>(place)];
        p.x = s.x;
        p.y = s.y;
        p.plan = tenue::fixe;
        if (altitude) {
            p.z = s.z;
            p.altitude = tenue::fixe;
        }
        return place;
    }

    int point(const std::wstring& nom) { return m_r.point(nom); }

    void ajouterAngle(int station, int arriere, int avant, double valeur)
    {
        if (station == arriere || station == avant || arriere == avant)
            return;
        observationReseau o = nouvelle(angle, station, arriere);
        o.vers2 = avant;
        o.mesure = radians(valeur);
        m_r.observations.push_back(o);
    }

    /// @param ecart 0: that of bearings
    void ajouterGisement(int station, int vers, double valeur, double ecart)
    {
        if (station == vers)
            return;
        observationReseau o = nouvelle(gisement, station, vers);
        o.mesure = angleReduit(radians(valeur));
        o.ecart = ecart;
        m_r.observations.push_back(o);
    }

    void ajouterCote(int de, int vers, const ligneObservation& l, bool altitude)
    {
        if (de == vers)
            return;
        observationReseau o = nouvelle(distance, de, vers);
        o.mesure = reelDeTexte(l.distance);
        if (o.mesure > 0.0)
            m_r.observations.push_back(o);
        if (!altitude)
            return;
        observationReseau h = nouvelle(denivelee, de, vers);
        h.mesure = reelDeTexte(l.altitude);
        h.longueur = o.mesure / 1000.0;
        m_r.observations.push_back(h);
    }

    double demiTour() const { return m_demiTour; }

private:
    static observationReseau nouvelle(genreObservation genre, int de, int vers)
    {
        observationReseau o;
        o.genre = genre;
        o.de = de;
        o.vers = vers;
        return o;
    }
    double radians(double valeur) const { return valeur * pi / m_demiTour; }

    reseau& m_r;
    double m_demiTour; ///< in the unit of the traverse
};

/// Whether some row has a height difference.
bool aDesAltitudes(const std::vector<ligneObservation>& lignes)
{
    for (const ligneObservation& l : lignes)
        if (reelDeTexte(l.altitude) != 0.0)
            return true;
    return false;
}

/// The bearing of the first leg is held; each angle is measured at the station before, from the one before that.
std::vector<int> traduire(const donneesPolygonaleFermee& d, reseau& r)
{
    traducteur t(r, d.unite);
    const bool altitude = aDesAltitudes(d.lignes);
    const int depart = t.fixer(d.depart, altitude, L"(départ)");
    std::vector<int> boucle{depart};
    for (std::size_t i = 0; i + 1 < d.lignes.size(); ++i)
        boucle.push_back(t.point(d.lignes[i].station));
    const std::size_t n = d.lignes.size();
    if (n > 1)
        t.ajouterGisement(depart, boucle[1 % n], d.depart.gisement, ecartGisementTenu);
    for (std::size_t i = 0; i < n; ++i) {
        const int station = boucle[i], avant = boucle[(i + 1) % n], arriere = boucle[(i + n - 1) % n];
        t.ajouterAngle(station, arriere, avant, reelDeTexte(d.lignes[i].angle));
        t.ajouterCote(station, avant, d.lignes[i], altitude);
    }
    return boucle;
}

/// The bearing of departure runs to the first station, that of arrival leaves the last: the angles there are bearings.
std::vector<int> traduire(const donneesPolygonaleOuverte& d, reseau& r)
{
    traducteur t(r, d.unite);
    const bool altitude = aDesAltitudes(d.lignes);
    std::vector<int> stations{t.fixer(d.depart, altitude, L"(départ)")};
    for (std::size_t i = 0; i + 1 < d.lignes.size(); ++i)
        stations.push_back(t.point(d.lignes[i].station));
    const std::size_t n = d.lignes.size();
    const std::wstring derniere = n == 0 ? std::wstring() : d.lignes.back().station;
    stations.push_back(t.fixer(d.arrivee, altitude, derniere.empty() ? L"(arrivée)" : derniere));
    for (std::size_t i = 0; i < n; ++i) {
        const double a = reelDeTexte(d.lignes[i].angle);
        if (i == 0)
            t.ajouterGisement(stations[0], stations[1], d.depart.gisement + a + t.demiTour(), 0.0);
        else
            t.ajouterAngle(stations[i], stations[i - 1], stations[i + 1], a);
        t.ajouterCote(stations[i], stations[i + 1], d.lignes[i], altitude);
    }
    if (n > 0)
        t.ajouterGisement(stations[n], stations[n - 1], d.arrivee.gisement - d.fermeture, 0.0);
    return stations;
}

template <class Donnees>
polygonaleEnReseau traduite(const Donnees& d)
{
    polygonaleEnReseau p;
    p.stations = traduire(d, p.r);
    return p;
}

template <class Donnees>
void lirePuisTraduire(std::string_view contenu, reseauLu& lu)
{
    Donnees d;
    bilanLecture bilan = lirePolygonale(contenu, d);
    lu.remarques = std::move(bilan.remarques);
    traduire(d, lu.r);
    lu.lisible = !d.lignes.empty();
    if (!lu.lisible)
        lu.remarques.insert(lu.remarques.begin(), {0, aucuneObservation});
}

/// Whether a line begins with a word that only an open traverse has.
bool polygonaleOuverte(std::string_view contenu)
{
    std::vector<std::wstring> mots;
    lignesFichier lignes(contenu);
    for (std::string_view ligne; lignes.suivante(ligne);) {
        decouperLigne(lignes.texte(ligne), separateursPolygonale, mots);
        if (mots.size() == 10 && minuscule(mots[0].front()) == L'a')
            return true;
    }
    return false;
}

bool estXml(std::string_view contenu)
{
    const std::size_t debut = contenu.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    return debut != std::string_view::npos && contenu[debut] == '<';
}

} // namespace

polygonaleEnReseau enReseau(const donneesPolygonaleFermee& donnees)
{
    return traduite(donnees);
}

polygonaleEnReseau enReseau(const donneesPolygonaleOuverte& donnees)
{
    return traduite(donnees);
}

reseauLu reseauDePolygonale(std::string_view contenu)
{
    reseauLu lu;
    if (polygonaleOuverte(contenu))
        lirePuisTraduire<donneesPolygonaleOuverte>(contenu, lu);
    else
        lirePuisTraduire<donneesPolygonaleFermee>(contenu, lu);
    return lu;
}

reseauLu lireReseau(std::string_view contenu, std::wstring_view nomFichier)
{
    const std::wstring nom = enMinuscules(std::wstring(nomFichier));
    if (estXml(contenu) || nom.ends_with(L".gkf"))
        return lireGkf(contenu);
    return nom.ends_with(L".obs") ? reseauDePolygonale(contenu) : lireMc(contenu);
}

reseauLu chargerReseau(const std::filesystem::path& fichier)
{
    std::error_code absent;
    std::ifstream flux(fichier, std::ios::binary);
    if (!flux || std::filesystem::is_directory(fichier, absent)) {
        reseauLu lu;
        lu.lisible = false;
        lu.remarques.push_back({0, L"le fichier n'a pas pu être ouvert."});
        return lu;
    }
    const std::string contenu{std::istreambuf_iterator<char>(flux), std::istreambuf_iterator<char>()};
    if (flux.bad()) {
        reseauLu lu;
        lu.lisible = false;
        lu.remarques.push_back({0, L"le fichier n'a pas pu être lu."});
        return lu;
    }
    return lireReseau(contenu, fichier.wstring());
}
