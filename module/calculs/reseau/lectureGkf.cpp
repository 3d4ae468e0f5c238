#include <algorithm>
#include <cmath>
#include <optional>

#include "calculs/reseau/fichierReseau.h"
#include "calculs/reseau/lecteurXml.h"
#include "calculs/reseau/motsGkf.h"
#include "services/codages.h"
#include "services/reelDeTexte.h"

namespace {

using enum genreObservation;

/// A covariance matrix beyond that is no survey's, and would fill the memory.
constexpr std::size_t dimensionMax = 3000;
constexpr double secondeEnRadians = pi / 180.0 / 3600.0;

/// Reads the file in one pass of the XML parser.
class lecteurGkf : private lecteurXml {
public:
    explicit lecteurGkf(reseauLu& lu) : m_lu(lu)
    {
        m_lu.r.sigma = 10.0;
        m_lu.r.toleranceAbsolue = 1.0;
        m_lu.r.axes = *axesNommes("ne");
    }

    void lire(std::string_view contenu)
    {
        analyser(contenu);
        if (!m_racine && !arrete())
            refuser(L"ce n'est pas un fichier « gama-local ».");
        ignorerNonDeclares();
    }

private:
    void malForme(std::wstring phrase) override { refuser(std::move(phrase)); }

    // --- Elements ------------------------------------------------------------------------------------------------

    void debut(std::string_view nom, const attributs& a) override
    {
        verifierAttributs(nom, a);
        if (nom == "gama-local" || nom == "gama-xml")
            m_racine = true;
        else if (!m_racine)
            refuser(L"ce n'est pas un fichier « gama-local » : l'élément « " + large(nom) + L" » est en tête.");
        else if (nom == "network")
            debutReseau(a);
        else if (nom == "parameters")
            debutParametres(a);
        else if (nom == "points-observations")
            debutPrecisions(a);
        else if (nom == "point")
            point(a);
        else if (nom == "obs" || nom == "height-differences" || nom == "coordinates" || nom == "vectors")
            debutGroupe(nom, a);
        else if (nom == "cov-mat")
            debutCovariances(a);
        else if (nom == "description")
            garderTexte();
        else if (nom != "vec")
            observation(nom, a);
    }

    void fin(std::string_view nom, std::string_view texte) override
    {
        if (nom == "description")
            m_lu.r.titre = large(rogner(texte));
        else if (nom == "cov-mat")
            covariances(texte);
        else if (nom == "obs" || nom == "height-differences" || nom == "coordinates" || nom == "vectors")
            finGroupe();
    }

    void verifierAttributs(std::string_view nom, const attributs& a)
    {
        const auto* const connus = attributsConnus(nom);
        for (const auto& [attribut, valeur] : a)
            if (connus && std::ranges::find(*connus, attribut) == connus->end())
                remarquer(L"« " + large(attribut) + L" » n'est pas un attribut de « " + large(nom) + L" » : ignoré.");
    }

    static std::string_view valeurDe(const attributs& a, const char* nom)
    {
        const auto v = a.find(nom);
        return v == a.end() ? std::string_view() : std::string_view(v->second);
    }

    /// Which of two words an attribute is; nothing when it is absent, and told when it is another.
    std::optional<bool> unDeDeux(const attributs& a, const char* nom, std::string_view oui, std::string_view non)
    {
        if (!a.contains(nom))
            return std::nullopt;
        const std::string_view valeur = valeurDe(a, nom);
        if (valeur == oui || valeur == non)
            return valeur == oui;
        remarquer(L"« " + large(nom) + L" = " + large(valeur) + L" » n'est ni « " + large(oui) + L" » ni « " +
                  large(non) + L" » : ignoré.");
        return std::nullopt;
    }

    void debutReseau(const attributs& a)
    {
        if (const std::string_view nom = valeurDe(a, "axes-xy"); a.contains("axes-xy")) {
            const axesFichier* const axes = axesNommes(nom);
            if (!axes)
                return refuser(L"axes « " + large(nom) + L" » inconnus.");
            m_lu.r.axes = *axes;
        }
        if (const auto antihoraire = unDeDeux(a, "angles", "right-handed", "left-handed"))
            m_lu.r.axes.antihoraire = *antihoraire;
    }

    void debutParametres(const attributs& a)
    {
        positif(a, "sigma-apr", [this](double v) { m_lu.r.sigma = v; });
        positif(a, "tol-abs", [this](double v) { m_lu.r.toleranceAbsolue = v * milli; });
        positif(a, "conf-pr", [this](double v) {
            if (v >= 1.0)
                return remarquer(L"« conf-pr » est entre 0 et 1 : ignoré.");
            m_lu.r.confiance = v;
        });
        if (const auto aPriori = unDeDeux(a, "sigma-act", "apriori", "aposteriori"))
            m_lu.r.ecartsAPriori = *aPriori;
        for (const char* const ignore : {"latitude", "ellipsoid"})
            if (a.contains(ignore))
                remarquer(L"« " + large(ignore) + L" » n'est pas pris en compte : le calcul reste plan.");
    }

    /// Kept in the file's units: an angle written in degrees has its deviation in seconds.
    struct precisions {
        std::optional<double> direction, angle, gisement, zenithal;
        std::optional<double> distance;
        double distanceKm = 0.0, exposant = 1.0;
    };

    void debutPrecisions(const attributs& a)
    {
        const auto prendre = [&](const char* nom, std::optional<double>& ou) {
            positif(a, nom, [&ou](double v) { ou = v; });
        };
        prendre("direction-stdev", m_precisions.direction);
        prendre("angle-stdev", m_precisions.angle);
        prendre("zenith-angle-stdev", m_precisions.zenithal);
        prendre("azimuth-stdev", m_precisions.gisement);
        const auto d = a.find("distance-stdev");
        if (d == a.end())
            return;
        const auto nombres = reelsXml(d->second);
        if (!nombres || nombres->empty() || nombres->size() > 3 || nombres->front() <= 0.0 ||
            (nombres->size() > 1 && (*nombres)[1] < 0.0))
            return remarquer(L"distance-stdev « " + large(d->second) + L" » n'est pas « a », « a b » ou « a b c ».");
        m_precisions.distance = (*nombres)[0];
        m_precisions.distanceKm = nombres->size() > 1 ? (*nombres)[1] : 0.0;
        m_precisions.exposant = nombres->size() > 2 ? (*nombres)[2] : 1.0;
    }

    void point(const attributs& a)
    {
        const auto nom = a.find("id");
        if (nom == a.end())
            return remarquer(L"point sans « id » : ignoré.");
        if (m_groupe == groupe::coordonnees)
            return coordonneesObservees(nom->second, a);
        pointReseau& p = pointNomme(nom->second);
        const auto x = coordonnee(a, "x"), y = coordonnee(a, "y"), z = coordonnee(a, "z");
        if (x && y)
            m_lu.r.axes.versTerrain(*x, *y, p.x, p.y);
        else if (x || y)
            remarquer(L"point « " + p.nom + L" » : il manque « " + (x ? L"y" : L"x") + L" » ; sa place est cherchée.");
        if (z)
            p.z = *z;
        tenir(p, a);
    }

    void tenir(pointReseau& p, const attributs& a)
    {
        const std::string_view cherche = valeurDe(a, "adj"), tenu = valeurDe(a, "fix");
        for (const std::string_view mot : {cherche, tenu})
            if (mot.find_first_not_of("xyzXYZ") != mot.npos)
                remarquer(L"point « " + p.nom + L" » : « " + large(mot) + L" » n'est pas fait de x, y et z.");
        const auto contient = [](std::string_view t, char c) { return t.find(c) != t.npos; };
        if (contient(cherche, 'x') || contient(cherche, 'y'))
            p.plan = tenue::libre;
        if (contient(cherche, 'X') || contient(cherche, 'Y'))
            p.plan = tenue::appui;
        if (contient(cherche, 'z'))
            p.altitude = tenue::libre;
        if (contient(cherche, 'Z'))
            p.altitude = tenue::appui;
        const auto contientDeux = [&](char c, char C) { return contient(tenu, c) || contient(tenu, C); };
        if (contientDeux('x', 'X') || contientDeux('y', 'Y')) {
            p.plan = tenue::fixe;
            if (!p.enPlan())
                remarquer(L"point « " + p.nom + L" » fixe sans x et y.");
        }
        if (contientDeux('z', 'Z')) {
            p.altitude = tenue::fixe;
            if (!estConnue(p.z))
                remarquer(L"point « " + p.nom + L" » fixe sans z.");
        }
    }

    void coordonneesObservees(const std::string& nom, const attributs& a)
    {
        observationReseau o;
        o.de = m_lu.r.point(nomLarge(nom));
        o.ligne = ligne();
        const auto x = coordonnee(a, "x"), y = coordonnee(a, "y"), z = coordonnee(a, "z");
        if (x && y) {
            double e = 0.0, n = 0.0;
            m_lu.r.axes.versTerrain(*x, *y, e, n);
            // In the file's order, for the rows of the covariance matrix; an axis turned round changes signs there.
            const bool premiereEstX = m_lu.r.axes.premiereEstX();
            for (const bool premiere : {true, false}) {
                const bool estX = premiere == premiereEstX;
                o.genre = estX ? coordonneeX : coordonneeY;
                o.mesure = estX ? e : n;
                const double signe = estX ? (premiere ? m_lu.r.axes.estX : m_lu.r.axes.estY)
                                          : (premiere ? m_lu.r.axes.nordX : m_lu.r.axes.nordY);
                ajouter(o, signe * milli);
            }
        }
        if (z) {
            o.genre = coordonneeZ;
            o.mesure = *z;
            ajouter(o, milli);
        }
        if (!(x && y) && !z)
            remarquer(L"coordonnées observées de « " + large(nom) + L" » sans x et y ni z : ignorées.");
    }

    enum class groupe { aucun, visees, denivelees, coordonnees, vecteurs };

    void debutGroupe(std::string_view nom, const attributs& a)
    {
        m_groupe = nom == "obs"           ? groupe::visees
                   : nom == "coordinates" ? groupe::coordonnees
                   : nom == "vectors"     ? groupe::vecteurs
                                          : groupe::denivelees;
        if (m_groupe == groupe::vecteurs)
            remarquer(L"les vecteurs GNSS ne sont pas calculés : ignorés.");
        m_covariancesLues = false;
        m_duGroupe.clear();
        m_serie = -1;
        m_station.clear();
        m_hauteurStation = 0.0;
        if (const auto de = a.find("from"); de != a.end())
            m_station = de->second;
        if (const auto h = nombre(a, "from_dh"))
            m_hauteurStation = *h;
    }

    void finGroupe()
    {
        if (m_groupe == groupe::coordonnees && !m_covariancesLues && !m_duGroupe.empty())
            remarquer(L"« coordinates » sans « cov-mat » : un écart-type de 1 mm est pris.");
        m_groupe = groupe::aucun;
        m_duGroupe.clear();
    }

    void observation(std::string_view nom, const attributs& a)
    {
        struct genreXml {
            const char* nom;
            genreObservation genre;
        };
        constexpr genreXml genres[] = {
            {"direction", direction}, {"distance", distance}, {"angle", angle}, {"s-distance", distanceInclinee},
            {"z-angle", zenithal},    {"azimuth", gisement},  {"dh", denivelee}};
        const auto genre = std::ranges::find_if(genres, [&](const genreXml& g) { return g.nom == nom; });
        if (genre == std::end(genres))
            return remarquer(L"élément « " + large(nom) + L" » inconnu : ignoré.");
        observationReseau o;
        o.genre = genre->genre;
        o.ligne = ligne();
        const auto de = a.find("from"), vers = a.find(o.genre == angle ? "bs" : "to"), avant = a.find("fs");
        if (o.genre == direction && de != a.end() && de->second != m_station)
            return remarquer(L"direction d'une autre station que son « obs » : ignorée.");
        const std::string station = de != a.end() ? de->second : m_station;
        if (station.empty() || vers == a.end() || (o.genre == angle && avant == a.end()))
            return remarquer(large(nom) + L" sans station ou sans point visé : ignorée.");
        o.de = m_lu.r.point(nomLarge(station));
        o.vers = m_lu.r.point(nomLarge(vers->second));
        if (o.genre == angle)
            o.vers2 = m_lu.r.point(nomLarge(avant->second));
        if (o.de == o.vers || o.de == o.vers2 || (o.genre == angle && o.vers == o.vers2))
            return remarquer(large(nom) + L" d'un point vers lui-même : ignorée.");
        const auto valeur = a.find("val");
        if (valeur == a.end())
            return remarquer(large(nom) + L" sans « val » : ignorée.");
        double unite = milli;
        if (!mesurer(o, valeur->second, unite))
            return remarquer(large(nom) + L" : « " + large(valeur->second) + L" » n'est pas une mesure ; ignorée.");
        const auto h = nombre(a, "from_dh"), hv = nombre(a, "to_dh");
        o.hauteurDe = h ? *h : m_hauteurStation;
        o.hauteurVers = hv ? *hv : 0.0;
        positif(a, "dist", [&o](double km) { o.longueur = km; });
        if (o.genre == direction) {
            if (m_serie < 0)
                m_serie = m_lu.r.series++;
            o.serie = m_serie;
        }
        o.ecart = ecartDe(o, a, unite);
        ajouter(o, unite);
    }

    /// The measure in metres or radians; `unite` becomes that of its deviation.
    bool mesurer(observationReseau& o, std::string_view valeur, double& unite) const
    {
        if (!estAngulaire(o.genre)) {
            const auto v = reelXml(valeur);
            if (!v || (o.genre != denivelee && *v <= 0.0))
                return false;
            o.mesure = *v;
            return true;
        }
        const auto degres = degresDeTexte(valeur), gons = reelXml(valeur);
        if (!degres && !gons)
            return false;
        o.mesure = degres ? *degres * pi / 180.0 : *gons * gradeEnRadians;
        if (o.genre != zenithal)
            o.mesure = m_lu.r.axes.angle(o.mesure);
        unite = degres ? secondeEnRadians : dmgrEnRadians;
        if (m_lu.r.axes.antihoraire && o.genre != zenithal)
            unite = -unite; // a covariance with a length changes sign
        return true;
    }

    double ecartDe(const observationReseau& o, const attributs& a, double unite)
    {
        unite = std::abs(unite);
        double donne = 0.0;
        positif(a, "stdev", [&donne](double s) { donne = s; });
        if (donne > 0.0)
            return donne * unite;
        const precisions& p = m_precisions;
        const std::optional<double>& defaut = o.genre == direction  ? p.direction
                                              : o.genre == angle    ? p.angle
                                              : o.genre == gisement ? p.gisement
                                              : o.genre == zenithal ? p.zenithal
                                                                    : p.distance;
        if (o.genre == denivelee)
            return o.longueur > 0.0 ? m_lu.r.sigma * std::sqrt(o.longueur) * milli : m_lu.r.sigma * milli;
        if (!defaut)
            return m_lu.r.sigma * unite;
        const bool longueur = o.genre == distance || o.genre == distanceInclinee;
        return (*defaut + (longueur ? p.distanceKm * std::pow(o.mesure / 1000.0, p.exposant) : 0.0)) * unite;
    }

    void ajouter(observationReseau o, double unite)
    {
        m_duGroupe.push_back({static_cast<int>(m_lu.r.observations.size()), unite});
        if (o.ecart == 0.0)
            o.ecart = std::abs(unite); // of coordinates: the matrix follows
        m_lu.r.observations.push_back(o);
    }

    // --- Covariances ---------------------------------------------------------------------------------------------

    void debutCovariances(const attributs& a)
    {
        garderTexte();
        const auto entier = [&](const char* nom) {
            const auto v = nombre(a, nom);
            return v && *v >= 0.0 && *v <= static_cast<double>(dimensionMax) ? static_cast<std::size_t>(*v)
                                                                             : dimensionMax + 1;
        };
        m_dimension = entier("dim");
        m_bande = entier("band");
        if (m_groupe != groupe::vecteurs && (m_dimension > dimensionMax || m_bande > dimensionMax))
            refuser(L"« cov-mat » sans « dim » et « band » qui conviennent.");
    }

    void covariances(std::string_view texte)
    {
        if (m_groupe == groupe::vecteurs)
            return;
        m_covariancesLues = true;
        const std::size_t n = m_duGroupe.size();
        if (m_dimension != n)
            return refuser(L"« cov-mat » de " + std::to_wstring(m_dimension) + L" ligne(s) pour " + std::to_wstring(n) +
                           L" observation(s).");
        blocCovariance b;
        std::vector<double> unites;
        for (const membre& m : m_duGroupe) {
            b.observations.push_back(m.observation);
            unites.push_back(m.unite);
        }
        if (!lireBande(texte, m_bande, unites, b.matrice))
            return refuser(L"« cov-mat » : un nombre manque, est de trop, ou n'en est pas un.");
        for (std::size_t i = 0; i < n; ++i) {
            const double variance = b.matrice[i * n + i];
            if (!(variance > 0.0))
                return refuser(L"« cov-mat » : une variance n'est pas positive.");
            m_lu.r.observations[static_cast<std::size_t>(b.observations[i])].ecart = std::sqrt(variance);
        }
        if (m_bande > 0)
            m_lu.r.covariances.push_back(std::move(b));
    }

    // --- Words and numbers ---------------------------------------------------------------------------------------

    static std::wstring large(std::string_view octets) { return depuisUtf8(std::string(octets)); }
    static std::wstring nomLarge(std::string_view octets) { return large(rogner(octets)); }

    /// The point of an element that declares it; observations may have named it before.
    pointReseau& pointNomme(const std::string& nom)
    {
        const auto place = static_cast<std::size_t>(m_lu.r.point(nomLarge(nom)));
        if (place >= m_declares.size())
            m_declares.resize(place + 1, false);
        pointReseau& p = m_lu.r.points[place];
        if (!m_declares[place])
            p.plan = p.altitude = tenue::ignoree;
        m_declares[place] = true;
        return p;
    }

    /// A point that no element declares is not looked for.
    void ignorerNonDeclares()
    {
        m_declares.resize(m_lu.r.points.size(), false);
        for (std::size_t i = 0; i < m_declares.size(); ++i)
            if (!m_declares[i])
                m_lu.r.points[i].plan = m_lu.r.points[i].altitude = tenue::ignoree;
    }

    std::optional<double> nombre(const attributs& a, const char* nom)
    {
        const auto v = a.find(nom);
        if (v == a.end())
            return std::nullopt;
        const auto valeur = reelXml(v->second);
        if (!valeur)
            remarquer(pasUnNombre(large(nom) + L" = " + large(v->second)));
        return valeur;
    }

    std::optional<double> coordonnee(const attributs& a, const char* nom) { return nombre(a, nom); }

    template <class Faire>
    void positif(const attributs& a, const char* nom, Faire faire)
    {
        if (const auto v = nombre(a, nom); v && *v > 0.0)
            faire(*v);
        else if (v)
            remarquer(L"« " + large(nom) + L" » doit être positif.");
    }

    void remarquer(std::wstring phrase) { m_lu.remarquer(static_cast<std::size_t>(ligne()), std::move(phrase)); }

    /// Nothing more is read.
    void refuser(std::wstring phrase)
    {
        m_lu.lisible = false;
        m_lu.remarques.insert(m_lu.remarques.begin(), {static_cast<std::size_t>(ligne()), std::move(phrase)});
        arreter();
    }

    struct membre {
        int observation;
        double unite; ///< of its rows in a covariance matrix
    };

    reseauLu& m_lu;
    precisions m_precisions;
    groupe m_groupe = groupe::aucun;
    std::vector<membre> m_duGroupe;
    std::vector<bool> m_declares; ///< by point
    std::string m_station;
    double m_hauteurStation = 0.0;
    std::size_t m_dimension = 0, m_bande = 0;
    int m_serie = -1;
    bool m_racine = false, m_covariancesLues = false;
};

} // namespace

reseauLu lireGkf(std::string_view contenu)
{
    reseauLu lu;
    lecteurGkf(lu).lire(contenu);
    if (!lu.lisible)
        lu.r = {};
    return lu;
}
