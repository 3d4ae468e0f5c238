#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>

#include <expat.h>

#include "calculs/reseau/fichierReseau.h"
#include "services/codages.h"
#include "services/lettres.h"

namespace {

using enum genreObservation;

constexpr std::size_t remarquesGardees = 1000;
constexpr int profondeurMax = 64;
/// A covariance matrix beyond that is no survey's, and would fill the memory.
constexpr std::size_t dimensionMax = 3000;
constexpr double secondeEnRadians = pi / 180.0 / 3600.0;

using attributs = std::map<std::string, std::string, std::less<>>;

std::string_view rogner(std::string_view texte)
{
    return sansBlancs(texte, " \t\r\n");
}

std::optional<double> reel(std::string_view texte)
{
    texte = rogner(texte);
    if (texte.starts_with('+'))
        texte.remove_prefix(1);
    double valeur = 0.0;
    const auto [fin, faute] = std::from_chars(texte.data(), texte.data() + texte.size(), valeur);
    if (faute != std::errc() || fin != texte.data() + texte.size() || !std::isfinite(valeur))
        return std::nullopt;
    return valeur;
}

/// "12-34-56.78": degrees, minutes, seconds.
std::optional<double> degresDeTexte(std::string_view texte)
{
    texte = rogner(texte);
    const bool negatif = texte.starts_with('-');
    if (negatif)
        texte.remove_prefix(1);
    const std::size_t a = texte.find('-'), b = a == texte.npos ? a : texte.find('-', a + 1);
    if (b == texte.npos)
        return std::nullopt;
    const auto d = reel(texte.substr(0, a)), m = reel(texte.substr(a + 1, b - a - 1)), s = reel(texte.substr(b + 1));
    if (!d || !m || !s || *d < 0.0 || *m < 0.0 || *m >= 60.0 || *s < 0.0 || *s >= 60.0)
        return std::nullopt;
    const double degres = *d + *m / 60.0 + *s / 3600.0;
    return negatif ? -degres : degres;
}

struct axesNommes {
    const char* nom;
    axesFichier axes;
};
/// Where the two axes point: n, e, s, w.
constexpr axesNommes systemesDAxes[] = {
    {"ne", {0, 1, 1, 0}}, {"sw", {0, -1, -1, 0}}, {"es", {1, 0, 0, -1}}, {"wn", {-1, 0, 0, 1}},
    {"en", {1, 0, 0, 1}}, {"nw", {0, -1, 1, 0}},  {"se", {0, 1, -1, 0}}, {"ws", {-1, 0, 0, -1}},
};

/// Reads the file in one pass of the XML parser.
class lecteurGkf {
public:
    explicit lecteurGkf(reseauLu& lu) : m_lu(lu)
    {
        m_lu.r.sigma = 10.0;
        m_lu.r.toleranceAbsolue = 1.0;
        m_lu.r.axes = systemesDAxes[0].axes;
    }

    void lire(std::string_view contenu)
    {
        m_analyseur = XML_ParserCreate(nullptr);
        XML_SetUserData(m_analyseur, this);
        XML_SetElementHandler(m_analyseur, ouvrir, fermer);
        XML_SetCharacterDataHandler(m_analyseur, texte);
        constexpr std::size_t morceau = 1 << 20;
        bool juste = true;
        do {
            const std::string_view partie = contenu.substr(0, morceau);
            contenu.remove_prefix(partie.size());
            juste = XML_Parse(m_analyseur, partie.data(), static_cast<int>(partie.size()), contenu.empty()) ==
                    XML_STATUS_OK;
        } while (juste && !contenu.empty() && !m_refus);
        if (!juste && !m_refus)
            refuser(L"XML mal formé : " + depuisAnsi(XML_ErrorString(XML_GetErrorCode(m_analyseur))) + L".");
        else if (!m_racine && !m_refus)
            refuser(L"ce n'est pas un fichier « gama-local ».");
        XML_ParserFree(m_analyseur);
        ignorerNonDeclares();
    }

private:
    // --- The parser's calls --------------------------------------------------------------------------------------

    static void ouvrir(void* moi, const char* nom, const char** paires)
    {
        auto& l = *static_cast<lecteurGkf*>(moi);
        if (l.m_refus)
            return;
        if (++l.m_profondeur > profondeurMax)
            return l.refuser(L"éléments trop imbriqués.");
        attributs a;
        for (; paires[0]; paires += 2)
            a[paires[0]] = paires[1];
        l.m_texte.clear();
        l.debut(nom, a);
    }

    static void fermer(void* moi, const char* nom)
    {
        auto& l = *static_cast<lecteurGkf*>(moi);
        --l.m_profondeur;
        if (!l.m_refus)
            l.fin(nom);
    }

    static void texte(void* moi, const char* octets, int nombre)
    {
        auto& l = *static_cast<lecteurGkf*>(moi);
        if (l.m_profondeur > 0 && l.m_garderTexte)
            l.m_texte.append(octets, static_cast<std::size_t>(nombre));
    }

    // --- Elements ------------------------------------------------------------------------------------------------

    void debut(std::string_view nom, const attributs& a)
    {
        m_garderTexte = nom == "description" || nom == "cov-mat";
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
        else if (nom == "obs" || nom == "height-differences" || nom == "coordinates")
            debutGroupe(nom, a);
        else if (nom == "vectors" || nom == "vec")
            vecteur(nom);
        else if (nom == "cov-mat")
            debutCovariances(a);
        else if (nom != "description")
            observation(nom, a);
    }

    void fin(std::string_view nom)
    {
        if (nom == "description")
            m_lu.r.titre = depuisUtf8(std::string(rogner(m_texte)));
        else if (nom == "cov-mat")
            covariances();
        else if (nom == "obs" || nom == "height-differences" || nom == "coordinates")
            finGroupe();
        if (nom == "description" || nom == "cov-mat")
            m_garderTexte = false;
    }

    void debutReseau(const attributs& a)
    {
        if (const auto axes = a.find("axes-xy"); axes != a.end()) {
            const auto connu = std::ranges::find(systemesDAxes, axes->second, &axesNommes::nom);
            if (connu == std::end(systemesDAxes))
                return refuser(L"axes « " + large(axes->second) + L" » inconnus.");
            m_lu.r.axes = connu->axes;
        }
        if (const auto sens = a.find("angles"); sens != a.end())
            m_lu.r.axes.antihoraire = sens->second == "right-handed";
    }

    void debutParametres(const attributs& a)
    {
        positif(a, "sigma-apr", [this](double v) { m_lu.r.sigma = v; });
        positif(a, "tol-abs", [this](double v) { m_lu.r.toleranceAbsolue = v * milli; });
        positif(a, "conf-pr", [this](double v) {
            if (v < 1.0)
                m_lu.r.confiance = v;
        });
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
        const auto nombres = liste(d->second);
        if (!nombres || nombres->empty() || nombres->size() > 3)
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
        if (z)
            p.z = *z;
        tenir(p, a);
    }

    void tenir(pointReseau& p, const attributs& a)
    {
        const auto texteDe = [&](const char* nom) {
            const auto v = a.find(nom);
            return v == a.end() ? std::string_view() : std::string_view(v->second);
        };
        const std::string_view cherche = texteDe("adj"), tenu = texteDe("fix");
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
    }

    enum class groupe { aucun, visees, denivelees, coordonnees };

    void debutGroupe(std::string_view nom, const attributs& a)
    {
        m_groupe = nom == "obs" ? groupe::visees : nom == "coordinates" ? groupe::coordonnees : groupe::denivelees;
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
        m_groupe = groupe::aucun;
        m_duGroupe.clear();
    }

    void vecteur(std::string_view nom)
    {
        if (nom == "vectors")
            remarquer(L"les vecteurs GNSS ne sont pas calculés : ignorés.");
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
        if (const auto km = nombre(a, "dist"))
            o.longueur = *km;
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
            const auto v = reel(valeur);
            if (!v || (o.genre != denivelee && *v <= 0.0))
                return false;
            o.mesure = *v;
            return true;
        }
        const auto degres = degresDeTexte(valeur), gons = reel(valeur);
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
        if (const auto s = nombre(a, "stdev"); s && *s > 0.0)
            return *s * unite;
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
        const auto entier = [&](const char* nom) {
            const auto v = nombre(a, nom);
            return v && *v >= 0.0 && *v <= static_cast<double>(dimensionMax) ? static_cast<std::size_t>(*v)
                                                                             : dimensionMax + 1;
        };
        m_dimension = entier("dim");
        m_bande = entier("band");
        if (m_dimension > dimensionMax || m_bande > dimensionMax)
            refuser(L"« cov-mat » sans « dim » et « band » qui conviennent.");
    }

    void covariances()
    {
        const std::size_t n = m_duGroupe.size();
        if (m_dimension != n)
            return refuser(L"« cov-mat » de " + std::to_wstring(m_dimension) + L" ligne(s) pour " + std::to_wstring(n) +
                           L" observation(s).");
        const auto nombres = liste(m_texte);
        std::size_t attendus = 0;
        for (std::size_t i = 0; i < n; ++i)
            attendus += std::min(m_bande, n - 1 - i) + 1;
        if (!nombres || nombres->size() != attendus)
            return refuser(L"« cov-mat » : " + std::to_wstring(attendus) + L" nombres attendus.");
        blocCovariance b;
        b.matrice.assign(n * n, 0.0);
        std::size_t suivant = 0;
        for (std::size_t i = 0; i < n; ++i) {
            b.observations.push_back(m_duGroupe[i].observation);
            for (std::size_t j = i; j <= std::min(i + m_bande, n - 1); ++j)
                b.matrice[i * n + j] = b.matrice[j * n + i] =
                    (*nombres)[suivant++] * m_duGroupe[i].unite * m_duGroupe[j].unite;
        }
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

    static std::optional<std::vector<double>> liste(std::string_view texte)
    {
        std::vector<double> nombres;
        for (;;) {
            texte = rogner(texte);
            if (texte.empty())
                return nombres;
            const std::size_t fin = std::min(texte.find_first_of(" \t\r\n"), texte.size());
            const auto v = reel(texte.substr(0, fin));
            if (!v)
                return std::nullopt;
            nombres.push_back(*v);
            texte.remove_prefix(fin);
        }
    }

    std::optional<double> nombre(const attributs& a, const char* nom)
    {
        const auto v = a.find(nom);
        if (v == a.end())
            return std::nullopt;
        const auto valeur = reel(v->second);
        if (!valeur)
            remarquer(L"« " + large(nom) + L" = " + large(v->second) + L" » n'est pas un nombre.");
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

    int ligne() const { return static_cast<int>(XML_GetCurrentLineNumber(m_analyseur)); }

    void remarquer(std::wstring phrase)
    {
        if (m_lu.remarques.size() < remarquesGardees)
            m_lu.remarques.push_back({static_cast<std::size_t>(ligne()), std::move(phrase)});
    }

    /// Nothing more is read.
    void refuser(std::wstring phrase)
    {
        m_refus = true;
        m_lu.lisible = false;
        m_lu.remarques.insert(m_lu.remarques.begin(), {static_cast<std::size_t>(ligne()), std::move(phrase)});
        XML_StopParser(m_analyseur, XML_FALSE);
    }

    struct membre {
        int observation;
        double unite; ///< of its rows in a covariance matrix
    };

    reseauLu& m_lu;
    XML_Parser m_analyseur = nullptr;
    precisions m_precisions;
    groupe m_groupe = groupe::aucun;
    std::vector<membre> m_duGroupe;
    std::vector<bool> m_declares; ///< by point
    std::string m_station, m_texte;
    double m_hauteurStation = 0.0;
    std::size_t m_dimension = 0, m_bande = 0;
    int m_serie = -1, m_profondeur = 0;
    bool m_racine = false, m_refus = false, m_garderTexte = false;
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
