#include <iostream>

#include "calculs/reseau/rapportReseau.h"
#include "platform/CodePage.h"

#include "fichierDessin.h"
#include "lignesConsole.h"
#include "nombres.h"
#include "tableTexte.h"
#include "traitementReseau.h"

using cote = tableTexte::cote;
using platform::utf8FromWide;

namespace {

constexpr int decimalesMetres = 4, decimalesMillimetres = 1;

double enMillimetres(double metres)
{
    return estConnue(metres) ? metres / milli : inconnu;
}

std::string nomDe(const reseau& r, int point)
{
    return utf8FromWide(r.points[static_cast<std::size_t>(point)].nom);
}

objetJson nomJson(const reseau& r, int point)
{
    return point < 0 ? objetJson(nullptr) : objetJson(nomDe(r, point));
}

struct affiche {
    double x = inconnu, y = inconnu, sx = inconnu, sy = inconnu;
};

/// In the file's own axes.
affiche dansSesAxes(const reseau& r, const pointCompense& p)
{
    affiche a;
    if (estConnue(p.x) && estConnue(p.y))
        r.axes.versFichier(p.x, p.y, a.x, a.y);
    a.sx = r.axes.premiereEstX() ? p.sx : p.sy;
    a.sy = r.axes.premiereEstX() ? p.sy : p.sx;
    return a;
}

objetJson pointJson(const reseau& r, std::size_t i, const pointCompense& p)
{
    const affiche a = dansSesAxes(r, p);
    objetJson json{{"nom", utf8FromWide(r.points[i].nom)}, {"x", nombreJson(a.x)}, {"y", nombreJson(a.y)}};
    json["z"] = nombreJson(p.z);
    json["sx"] = nombreJson(enMillimetres(a.sx));
    json["sy"] = nombreJson(enMillimetres(a.sy));
    json["sz"] = nombreJson(enMillimetres(p.sz));
    json["ellipse"] = nullptr;
    if (p.planCherche)
        json["ellipse"] = {{"a", nombreJson(enMillimetres(p.ellipse.a))},
                           {"b", nombreJson(enMillimetres(p.ellipse.b))},
                           {"gisement", nombreJson(p.ellipse.gisement / gradeEnRadians)}};
    return json;
}

objetJson observationJson(const traitementReseau& t, std::size_t i)
{
    const observationReseau& o = t.r.observations[i];
    const observationCompensee& m = t.resultat.mesures[i];
    const bool angulaire = estAngulaire(o.genre);
    const auto oui = [&](double valeur) { return m.retenue ? nombreJson(valeur) : objetJson(nullptr); };
    objetJson json{{"type", utf8FromWide(motObservation(o.genre))},
                   {"de", nomJson(t.r, o.de)},
                   {"vers", nomJson(t.r, o.vers)},
                   {"vers2", nomJson(t.r, o.vers2)},
                   {"mesure", nombreJson(mesureAffichee(t.r, o, o.mesure))},
                   {"compensee", oui(mesureAffichee(t.r, o, m.compensee))},
                   {"residu", oui(residuAffiche(t.r, o, m.residu))},
                   {"redondance", oui(m.redondance)},
                   {"residu_normalise", oui(m.normalise)},
                   {"suspect", m.suspecte},
                   {"ecart_type", oui(angulaire ? m.ecart / dmgrEnRadians : m.ecart / milli)},
                   {"erreur_detectable", oui(!estConnue(m.erreurDetectable) ? inconnu
                                             : angulaire                    ? m.erreurDetectable / dmgrEnRadians
                                                                            : m.erreurDetectable / milli)},
                   {"effet", oui(enMillimetres(m.effet))},
                   {"s0_sans", oui(m.s0Sans)},
                   {"poids_robuste", oui(m.facteurRobuste)},
                   {"ligne", o.ligne > 0 ? objetJson(o.ligne) : objetJson(nullptr)}};
    if (!m.retenue)
        json["raison"] = utf8FromWide(m.raison);
    return json;
}

objetJson suspectJson(const traitementReseau& t, const suspectReseau& s)
{
    const observationReseau& o = t.r.observations[static_cast<std::size_t>(s.observation)];
    return {{"observation", s.observation},
            {"designation", utf8FromWide(nomObservation(t.r, o))},
            {"faute", nombreJson(residuAffiche(t.r, o, s.faute))},
            {"s0_sans", nombreJson(s.s0Sans)},
            {"risque", nombreJson(s.risque)},
            {"cause", s.cause.empty() ? objetJson(nullptr) : objetJson(utf8FromWide(s.cause))}};
}

std::vector<std::string> tousLesAvertissements(const traitementReseau& t)
{
    std::vector<std::string> tous = t.avertissements;
    for (const std::wstring& phrase : t.resultat.messages)
        tous.push_back(utf8FromWide(phrase));
    return tous;
}

void afficherPoints(const traitementReseau& t)
{
    tableTexte table({cote::gauche, cote::droite, cote::droite, cote::droite, cote::droite, cote::droite, cote::droite,
                      cote::droite, cote::droite, cote::droite});
    table.ajouter({"Point", "X", "Y", "Z", "sx mm", "sy mm", "sz mm", "a mm", "b mm", "gis. gr"});
    const auto metres = [](double v) { return estConnue(v) ? nombreTexte(v, decimalesMetres) : std::string("-"); };
    const auto mm = [](double v) {
        return estConnue(v) ? nombreTexte(v / milli, decimalesMillimetres) : std::string("-");
    };
    for (std::size_t i = 0; i < t.r.points.size(); ++i) {
        const pointCompense& p = t.resultat.points[i];
        if (!estConnue(p.x) && !estConnue(p.z))
            continue;
        const affiche a = dansSesAxes(t.r, p);
        const bool e = p.planCherche;
        table.ajouter({utf8FromWide(t.r.points[i].nom), metres(a.x), metres(a.y), metres(p.z), mm(a.sx), mm(a.sy),
                       mm(p.sz), mm(e ? p.ellipse.a : inconnu), mm(e ? p.ellipse.b : inconnu),
                       e ? nombreTexte(p.ellipse.gisement / gradeEnRadians, 1) : std::string("-")});
    }
    std::cout << "\nPoints\n";
    table.ecrire(std::cout, "  ");
}

void afficherSuspects(const traitementReseau& t)
{
    if (t.resultat.suspects.empty())
        return;
    std::cout << "\nObservations suspectes, la plus probable d'abord\n";
    for (const suspectReseau& s : t.resultat.suspects)
        std::cout << "  " << utf8FromWide(phraseSuspect(t.r, s)) << '\n';
}

} // namespace

void afficherTexte(const demandeReseau& demande, const traitementReseau& t)
{
    avertirDesPremiers(tousLesAvertissements(t));
    const resultatReseau& r = t.resultat;
    std::cout << "Réseau : " << demande.fichier << '\n'
              << r.observations << " observations, " << r.inconnues << " inconnues, " << r.degresDeLiberte
              << " degrés de liberté, " << r.iterations << " itérations, " << utf8FromWide(nomEstimateur(r.methode))
              << (r.libre ? ", réseau libre" : "") << '\n';
    std::cout << utf8FromWide(phraseTestGlobal(t.r, r)) << '\n';
    afficherPoints(t);
    afficherSuspects(t);
    if (!t.rapport.empty())
        std::cout << "\nRapport : " << t.rapport << '\n';
    if (t.dessin.empty())
        return;
    std::cout << "\nDessin : " << t.dessin;
    if (demande.placer)
        std::cout << " (" << phrasePointsPlaces(t.pointsPlaces, t.table) << ')';
    std::cout << '\n';
    direAncienDessin(t.ancienDessin);
}

void afficherJson(const demandeReseau& demande, const traitementReseau& t)
{
    const resultatReseau& r = t.resultat;
    objetJson json{{"fichier", demande.fichier},
                   {"titre", utf8FromWide(t.r.titre)},
                   {"s0", nombreJson(r.s0)},
                   {"s0_annonce", t.r.sigma},
                   {"s0_admis", estConnue(r.s0) ? objetJson(!r.horsTolerance) : objetJson(nullptr)},
                   {"somme_pvv", nombreJson(r.sommePvv)},
                   {"degres_de_liberte", r.degresDeLiberte},
                   {"iterations", r.iterations},
                   {"converge", r.converge},
                   {"methode", utf8FromWide(nomEstimateur(r.methode))},
                   {"libre", r.libre},
                   {"inconnues", r.inconnues},
                   {"defaut", r.defaut}};
    auto& points = json["points"] = objetJson::array();
    for (std::size_t i = 0; i < t.r.points.size(); ++i)
        points.push_back(pointJson(t.r, i, r.points[i]));
    auto& observations = json["observations"] = objetJson::array();
    for (std::size_t i = 0; i < t.r.observations.size(); ++i)
        observations.push_back(observationJson(t, i));
    auto& suspects = json["suspects"] = objetJson::array();
    for (const suspectReseau& s : r.suspects)
        suspects.push_back(suspectJson(t, s));
    json["avertissements"] = tousLesAvertissements(t);
    json["rapport"] = fichierJson(t.rapport);
    json["dessin"] = fichierJson(t.dessin);
    json["ancienDessin"] = fichierJson(t.ancienDessin);
    json["pointsPlaces"] = t.pointsPlaces;
    ecrireJson(json);
}
