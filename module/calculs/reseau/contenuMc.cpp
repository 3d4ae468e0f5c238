#include <charconv>
#include <utility>

#include "calculs/formules/fichierFormules.h"
#include "calculs/reseau/fichierReseau.h"
#include "services/codages.h"

// Measures are written with the shortest digits that read back as the same number.

namespace {

using enum genreObservation;

/// A number near a short one is that one: what degrees and millimetres lose on the way to radians and metres.
std::string arrondi(double valeur)
{
    char tampon[64];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, valeur, std::chars_format::general, 14).ptr;
    return {tampon, fin};
}

std::string nomDe(const reseau& r, int point)
{
    return motCite(versAnsi(r.points[static_cast<std::size_t>(point)].nom));
}

void ecrirePoint(const pointReseau& p, std::string& texte)
{
    texte += "Point: " + motCite(versAnsi(p.nom));
    for (const auto& [mot, valeur] : {std::pair(" X= ", p.x), std::pair(" Y= ", p.y), std::pair(" Z= ", p.z)})
        if (estConnue(valeur))
            texte += mot + nombreCourt(valeur);
    const std::string plan = " " + versAnsi(motTenue(p.plan)), altitude = " " + versAnsi(motTenue(p.altitude));
    if (p.plan != p.altitude)
        texte += plan + " xy" + altitude + " z";
    else if (p.plan != tenue::libre)
        texte += plan;
    texte += '\n';
}

void ecrireObservation(const reseau& r, const observationReseau& o, double hauteur, std::string& texte)
{
    const bool coordonnee = o.vers < 0;
    texte += versAnsi(motObservation(o.genre));
    texte += ": " + nomDe(r, coordonnee ? o.de : o.vers);
    if (o.genre == angle)
        texte += " " + nomDe(r, o.vers2);
    texte += " " + (estAngulaire(o.genre) ? arrondi(o.mesure / gradeEnRadians) : nombreCourt(o.mesure));
    if (o.ecart > 0.0)
        texte += " e= " + arrondi(o.ecart / (estAngulaire(o.genre) ? dmgrEnRadians : milli));
    if (!coordonnee && o.hauteurDe != hauteur)
        texte += " hi= " + nombreCourt(o.hauteurDe);
    if (o.hauteurVers != 0.0)
        texte += " ht= " + nombreCourt(o.hauteurVers);
    if (o.longueur > 0.0)
        texte += " km= " + nombreCourt(o.longueur);
    if (!o.active)
        texte += " hors";
    texte += '\n';
}

void ecrirePrecisions(const precisionsParDefaut& p, std::string& texte)
{
    const auto angulaire = [&](const char* mot, double valeur) {
        if (valeur > 0.0)
            texte += std::string("Precision: ") + mot + " " + arrondi(valeur / dmgrEnRadians) + "\n";
    };
    angulaire("direction", p.direction);
    angulaire("angle", p.angle);
    angulaire("gisement", p.gisement);
    angulaire("zenithal", p.zenithal);
    if (p.distance > 0.0)
        texte += "Precision: distance " + arrondi(p.distance / milli) + " " + arrondi(p.distanceKm / milli) + "\n";
    if (p.denivelee > 0.0)
        texte += "Precision: denivelee " + arrondi(p.denivelee / milli) + "\n";
}

} // namespace

precisionsParDefaut precisionsUsuelles()
{
    precisionsParDefaut p;
    p.direction = p.angle = p.gisement = p.zenithal = dmgrUsuels * dmgrEnRadians;
    p.distance = millimetresUsuels * milli;
    p.distanceKm = millimetresParKmUsuels * milli;
    p.denivelee = deniveleeUsuelle * milli;
    return p;
}

std::string contenuMc(const reseau& r)
{
    std::string texte = "* " + versAnsi(L"Réseau à compenser par moindres carrés") + "\n";
    if (!r.titre.empty())
        texte += "Titre: " + motCite(versAnsi(r.titre)) + "\n";
    texte += "Angles: grades\nSigma: " + nombreCourt(r.sigma) + (r.ecartsAPriori ? " apriori" : "") +
             "\nConfiance: " + nombreCourt(r.confiance) + "\n";
    texte += versAnsi(L"* Écarts-types sans « e= » : angles en dmgr, longueurs en mm (et mm par km)") + "\n";
    ecrirePrecisions(r.precisions, texte);
    texte += contenuFormules(r.formules);
    texte += "* Points: nom X= Y= Z= fixe | appui | libre | ignore\n";
    for (const pointReseau& p : r.points)
        ecrirePoint(p, texte);
    texte += "* Observations: Station, puis Direction, Angle, Gisement, Distance, Inclinee, Zenithal, Denivelee\n";
    int station = -1, serie = -1;
    double hauteur = 0.0;
    for (const observationReseau& o : r.observations) {
        const bool neuve = o.vers >= 0 && (o.de != station || (o.serie >= 0 && serie >= 0 && o.serie != serie));
        if (neuve) {
            station = o.de;
            serie = -1;
            hauteur = o.hauteurDe;
            texte += "Station: " + nomDe(r, station) + (hauteur != 0.0 ? " hi= " + nombreCourt(hauteur) : "") + "\n";
        }
        if (o.serie >= 0)
            serie = o.serie;
        ecrireObservation(r, o, hauteur, texte);
    }
    return texte;
}

std::vector<std::wstring> pertesMc(const reseau& r)
{
    std::vector<std::wstring> pertes;
    if (!r.covariances.empty())
        pertes.push_back(L"Un fichier « .mc » ne garde pas les covariances : les observations corrélées y deviennent "
                         L"indépendantes, avec leurs écarts-types.");
    if (estConnue(r.toleranceAbsolue))
        pertes.push_back(L"Un fichier « .mc » ne garde pas la tolérance au-delà de laquelle une observation est mise "
                         L"hors calcul.");
    return pertes;
}
