#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "calculs/decouperLigne.h"
#include "calculs/formules/fichierFormules.h"
#include "calculs/lignesFichier.h"
#include "calculs/reseau/fichierReseau.h"
#include "calculs/reseau/poidsReseau.h"
#include "calculs/uniteAngulaire.h"
#include "services/codages.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

namespace {

using enum genreObservation;

/// A word in lower case and without accents, as keywords are compared.
std::wstring motCle(std::wstring_view mot)
{
    std::wstring cle;
    for (const wchar_t c : enMinuscules(std::wstring(mot)))
        cle += std::wstring_view(L"éèê").find(c) != std::wstring_view::npos ? L'e' : c;
    return cle;
}

class lecteurMc {
public:
    explicit lecteurMc(reseauLu& lu) : m_lu(lu) { m_lu.r.precisions = precisionsUsuelles(); }

    void lire(std::string_view contenu)
    {
        lignesFichier lignes(contenu);
        for (std::string_view ligne; lignes.suivante(ligne);) {
            m_ligne = static_cast<int>(lignes.numero());
            decouperLigne(lignes.texte(ligne), separateursPolygonale, m_mots);
            if (!m_mots.empty())
                lireLigne();
        }
        verifierFormules();
        if (m_lu.r.observations.empty()) {
            m_lu.lisible = !m_lu.r.points.empty();
            m_lu.remarques.insert(m_lu.remarques.begin(), {0, aucuneObservation});
        }
    }

private:
    void lireLigne()
    {
        m_suivant = 1;
        const std::wstring cle = motCle(m_mots[0]);
        if (cle == L"titre")
            m_lu.r.titre = prendreMot();
        else if (cle == L"angles")
            unite();
        else if (cle == L"sigma")
            sigma();
        else if (cle == L"confiance")
            avecNombre([this](double v) { confiance(v); });
        else if (cle == L"precision")
            precision();
        else if (cle == L"formule" || cle == L"variable")
            formule();
        else if (cle == L"point")
            point();
        else if (cle == L"station")
            station();
        else
            observation(cle);
    }

    /// Sigma  nombre [apriori]
    void sigma()
    {
        avecNombre([this](double v) { m_lu.r.sigma = v; });
        if (const std::wstring mot = prendreMot(); motCle(mot) == L"apriori")
            m_lu.r.ecartsAPriori = true;
        else if (!mot.empty())
            remarquer(L"« " + mot + L" » n'est pas compris après « Sigma » : « apriori » ou rien.");
    }

    void unite()
    {
        const std::wstring mot = prendreMot();
        if (mot.empty())
            return remarquer(L"« Angles » sans unité.");
        m_unite = uniteAngulaireDe(mot.front());
        if (minuscule(mot.front()) != minuscule(motUniteAngulaire(m_unite)[0]))
            remarquer(L"unité « " + mot + L" » inconnue, « " + motUniteAngulaire(m_unite) + L" » est pris.");
    }

    /// How many radians make one unit of the file's angles.
    double radiansParUnite() const
    {
        return m_unite == uniteGrades ? pi / 200.0 : m_unite == uniteDegres ? pi / 180.0 : 1.0;
    }

    void precision()
    {
        const std::wstring cle = motCle(prendreMot());
        precisionsParDefaut& p = m_lu.r.precisions;
        const auto premier = nombre();
        if (!premier || *premier <= 0.0)
            return remarquer(L"« Precision » d'un genre d'observation, puis un écart-type positif.");
        if (cle == L"distance" || cle == L"inclinee") {
            p.distance = *premier * milli;
            const double parKm = m_suivant < m_mots.size() ? nombre().value_or(0.0) : 0.0;
            if (parKm < 0.0)
                remarquer(L"« Precision » : des mm par kilomètre ne sont pas négatifs ; 0 est pris.");
            p.distanceKm = std::max(parKm, 0.0) * milli;
            p.distanceExposant = 1.0;
        } else if (cle == L"denivelee") {
            p.denivelee = *premier * milli;
        } else if (cle == L"direction") {
            p.direction = *premier * dmgrEnRadians;
        } else if (cle == L"angle") {
            p.angle = *premier * dmgrEnRadians;
        } else if (cle == L"gisement") {
            p.gisement = *premier * dmgrEnRadians;
        } else if (cle == L"zenithal") {
            p.zenithal = *premier * dmgrEnRadians;
        } else {
            remarquer(L"« Precision » d'un genre inconnu, « " + m_mots[1] + L" ».");
        }
    }

    /// As a share, or in hundredths from 1 on.
    void confiance(double valeur)
    {
        const double part = valeur < 1.0 ? valeur : valeur / 100.0;
        if (part >= 1.0)
            return remarquer(L"« Confiance » est entre 0 et 100 % : ignorée.");
        m_lu.r.confiance = part;
    }

    void formule()
    {
        if (!lireLigneFormule(m_mots, m_lu.r.formules))
            return remarquer(
                L"« Formule » de « angles », « gisements » ou « distances », ou « Variable » avec un nom et une "
                L"valeur.");
        if (motCle(m_mots[0]) == L"formule")
            m_formules.emplace_back(m_ligne, m_mots.size() > 2 ? versAnsi(m_mots[2]) : std::string());
    }

    /// Once all variables are known.
    void verifierFormules()
    {
        for (const auto& [ligne, texte] : m_formules) {
            m_ligne = ligne;
            if (std::wstring defaut = defautDeFormule(texte, m_lu.r.formules.variables); !defaut.empty())
                remarquer(std::move(defaut));
        }
    }

    /// Point  nom  X= Y= Z=  fixe | appui | libre | ignore [xy | z]  ex= ey= ez=
    void point()
    {
        const std::wstring nom = prendreMot();
        if (nom.empty())
            return remarquer(L"« Point » sans nom.");
        pointReseau& p = m_lu.r.points[static_cast<std::size_t>(m_lu.r.point(nom))];
        double x = p.x, y = p.y, z = p.z;
        std::array<double, 3> ecarts{};
        while (m_suivant < m_mots.size()) {
            const std::wstring brut = prendreMot(), cle = motCle(brut);
            if (cle == L"x")
                lireNombre(brut, x);
            else if (cle == L"y")
                lireNombre(brut, y);
            else if (cle == L"z")
                lireNombre(brut, z);
            else if (cle == L"ex" || cle == L"ey" || cle == L"ez")
                lirePositif(brut, ecarts[static_cast<std::size_t>(cle[1] - L'x')]);
            else if (cle == L"ecart" || cle == L"e") {
                double tous = 0.0;
                lirePositif(brut, tous);
                ecarts = {tous, tous, z == inconnu ? 0.0 : tous};
            } else if (const auto t = tenueDuMot(cle))
                tenir(p, *t);
            else
                remarquer(L"« " + brut + L" » n'est pas compris dans la ligne du point « " + nom + L" ».");
        }
        p.x = x;
        p.y = y;
        p.z = z;
        // "fixe" alone holds what is given; what it names must be.
        if (p.plan == tenue::fixe && !p.enPlan()) {
            p.plan = tenue::libre;
            if (!estConnue(z) || x != inconnu || y != inconnu)
                remarquer(L"le point « " + nom + L" » est fixe sans X et Y : il est cherché en plan.");
        }
        if (p.altitude == tenue::fixe && !estConnue(z))
            p.altitude = tenue::libre;
        observerCoordonnees(m_lu.r.chercher(nom), ecarts);
    }

    /// The word that follows may restrict it: xy or z.
    void tenir(pointReseau& p, tenue t)
    {
        const std::wstring suite = m_suivant < m_mots.size() ? motCle(m_mots[m_suivant]) : L"";
        const bool plan = suite == L"xy", hauteur = suite == L"z" && !suivieDUnNombre();
        if (plan || hauteur || suite == L"xyz")
            ++m_suivant;
        if (!hauteur)
            p.plan = t;
        if (!plan)
            p.altitude = t;
    }

    bool suivieDUnNombre() const
    {
        if (m_suivant + 1 >= m_mots.size())
            return false;
        bool entier = false;
        reelDeTexte(m_mots[m_suivant + 1], &entier);
        return entier;
    }

    /// Coordinates known with a precision are observations of them.
    void observerCoordonnees(int place, const std::array<double, 3>& ecarts)
    {
        const pointReseau& p = m_lu.r.points[static_cast<std::size_t>(place)];
        const double valeurs[] = {p.x, p.y, p.z};
        constexpr genreObservation genres[] = {coordonneeX, coordonneeY, coordonneeZ};
        for (std::size_t i = 0; i < 3; ++i)
            if (ecarts[i] > 0.0 && estConnue(valeurs[i])) {
                observationReseau o;
                o.genre = genres[i];
                o.de = place;
                o.mesure = valeurs[i];
                o.ecart = ecarts[i] * milli;
                o.ligne = m_ligne;
                m_lu.r.observations.push_back(o);
            }
    }

    /// Station  nom  hi= : begins a set of directions.
    void station()
    {
        const std::wstring nom = prendreMot();
        if (nom.empty())
            return remarquer(L"« Station » sans nom.");
        m_station = m_lu.r.point(nom);
        m_hauteur = 0.0;
        m_serie = -1;
        while (m_suivant < m_mots.size()) {
            const std::wstring brut = prendreMot();
            if (motCle(brut) == L"hi")
                lireNombre(brut, m_hauteur);
            else
                remarquer(L"« " + brut + L" » n'est pas compris dans la ligne de la station « " + nom + L" ».");
        }
    }

    /// Genre  visé [second visé]  mesure  e= ht= km= de= hors
    void observation(const std::wstring& cle)
    {
        const auto genre = genreDuMot(cle);
        if (!genre)
            return remarquer(L"mot-clé « " + m_mots[0] + L" » inconnu : ligne ignorée.");
        observationReseau o;
        o.genre = *genre;
        o.ligne = m_ligne;
        const bool coordonnee = o.genre == coordonneeX || o.genre == coordonneeY || o.genre == coordonneeZ;
        const std::wstring vise = prendreMot(), second = o.genre == angle ? prendreMot() : std::wstring();
        const auto mesure = nombre();
        if (vise.empty() || !mesure)
            return remarquer(L"« " + m_mots[0] + L" » : un point visé" + (o.genre == angle ? L", un second" : L"") +
                             L" et une mesure ; ligne ignorée.");
        o.mesure = estAngulaire(o.genre) ? *mesure * radiansParUnite() : *mesure;
        o.de = m_station;
        double ecart = 0.0, hi = m_hauteur;
        while (m_suivant < m_mots.size())
            option(o, ecart, hi);
        o.hauteurDe = hi;
        if (coordonnee) {
            o.de = m_lu.r.point(vise);
        } else if (o.de < 0) {
            return remarquer(L"observation avant toute « Station » : ligne ignorée.");
        } else {
            o.vers = m_lu.r.point(vise);
            o.vers2 = o.genre == angle ? m_lu.r.point(second) : -1;
        }
        if (o.vers == o.de || o.vers2 == o.de || (o.genre == angle && o.vers == o.vers2))
            return remarquer(L"observation d'un point vers lui-même : ligne ignorée.");
        if ((o.genre == distance || o.genre == distanceInclinee) && !(o.mesure > 0.0))
            return remarquer(L"distance qui n'est pas positive : ligne ignorée.");
        o.ecart = ecart * (estAngulaire(o.genre) ? dmgrEnRadians : milli);
        if (o.genre == direction)
            o.serie = serieDe(o.de);
        m_lu.r.observations.push_back(o);
    }

    void option(observationReseau& o, double& ecart, double& hi)
    {
        const std::wstring brut = prendreMot(), cle = motCle(brut);
        if (cle == L"e" || cle == L"ecart")
            lirePositif(brut, ecart);
        else if (cle == L"ht")
            lireNombre(brut, o.hauteurVers);
        else if (cle == L"hi")
            lireNombre(brut, hi);
        else if (cle == L"km")
            lirePositif(brut, o.longueur);
        else if (cle == L"de" && m_suivant < m_mots.size())
            o.de = m_lu.r.point(prendreMot());
        else if (cle == L"hors")
            o.active = false;
        else
            remarquer(pasCompris(brut));
    }

    /// The set of the last "Station" line; a direction that names another station begins one.
    int serieDe(int de)
    {
        if (m_serie < 0 || m_stationDeLaSerie != de) {
            m_serie = m_lu.r.series++;
            m_stationDeLaSerie = de;
        }
        return m_serie;
    }

    // --- Words and numbers ---------------------------------------------------------------------------------------

    std::wstring prendreMot() { return m_suivant < m_mots.size() ? m_mots[m_suivant++] : std::wstring(); }

    std::optional<double> nombre()
    {
        const std::wstring mot = prendreMot();
        bool entier = false;
        const double v = reelDeTexte(mot, &entier);
        if (!mot.empty() && !entier)
            remarquer(pasUnNombre(mot));
        return !mot.empty() && entier && std::isfinite(v) ? std::optional(v) : std::nullopt;
    }

    /// What follows a word like "ht="; a missing one is told, as one that is no number is.
    void lireNombre(const std::wstring& mot, double& ou)
    {
        if (m_suivant >= m_mots.size())
            remarquer(L"« " + mot + L"= » sans nombre.");
        else if (const auto v = nombre())
            ou = *v;
    }

    /// The same of what has to be positive: deviations, lengths.
    void lirePositif(const std::wstring& mot, double& ou)
    {
        double lu = inconnu;
        lireNombre(mot, lu);
        if (lu != inconnu && lu > 0.0)
            ou = lu;
        else if (lu != inconnu)
            remarquer(L"« " + mot + L"= » doit être positif : ignoré.");
    }

    template <class Faire>
    void avecNombre(Faire faire)
    {
        const auto v = nombre();
        if (v && *v > 0.0)
            faire(*v);
        else
            remarquer(L"« " + m_mots[0] + L" » demande un nombre positif.");
    }

    void remarquer(std::wstring phrase) { m_lu.remarquer(static_cast<std::size_t>(m_ligne), std::move(phrase)); }

    reseauLu& m_lu;
    std::vector<std::wstring> m_mots;
    std::size_t m_suivant = 1;
    std::vector<std::pair<int, std::string>> m_formules; // with their lines
    int m_ligne = 0, m_unite = uniteGrades;
    int m_station = -1, m_serie = -1, m_stationDeLaSerie = -1;
    double m_hauteur = 0.0;
};

} // namespace

reseauLu lireMc(std::string_view contenu)
{
    reseauLu lu;
    lecteurMc(lu).lire(contenu);
    return lu;
}
