#include "implantation/traceImplantation.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "services/formatNombres.h"

namespace {

constexpr int couleurSansVerification = 7; // whatever the colour chosen for unchecked points
constexpr double interligne = 1.5;         // of the height of texts
std::wstring texteTrace(double valeur, int nombreDecimales = decimalesImplantation)
{
    return formaterFixe(valeur, nombreDecimales);
}

int couleurDe(const pointImplante& point, bool verification, const reglagesImplantation& reglages)
{
    if (!verification)
        return couleurSansVerification;
    switch (etatDe(point, reglages.hauteur)) {
    case etatVisibilite::visible:
        return reglages.visible;
    case etatVisibilite::nonVisible:
        return reglages.nonVisible;
    case etatVisibilite::nonVerifie:
        break;
    }
    return reglages.nonVerifie;
}

point2 versGisement(double gisement)
{
    return {std::sin(gisement), std::cos(gisement)};
}

/// A line that ends in an arrow head.
void fleche(dessinPlan& dessin, point2 de, point2 vers, int couleur, const reglagesImplantation& reglages)
{
    const double longueur = norme(vers - de);
    if (!(longueur > 0.0))
        return;
    const point2 u = (vers - de) * (1.0 / longueur);
    const double tete = std::min(reglages.longueurFleche, longueur);
    const point2 base = vers - u * tete, cote = droiteDe(u) * (reglages.largeurFleche / 2.0);
    dessin.traits.push_back({de, base, couleur});
    dessin.triangles.push_back({{vers, base + cote, base - cote}, couleur});
}

/// Where the arrow of the zero leads; an oriented setup has no target, only a direction.
point2 boutDuZero(const donneesStation& s, const reglagesImplantation& reglages)
{
    if (s.visee && s.reference.planConnu())
        return s.reference.plan();
    const double longueur = 2.0 * reglages.tailleStations + reglages.longueurFleche;
    return s.station.plan() + versGisement(s.v0) * longueur;
}

std::vector<std::wstring> lignesStation(const donneesStation& s)
{
    std::wstring texte = descriptionTexte(s);
    const std::size_t coupure = texte.find(L"%%uReference");
    return {texte.substr(0, coupure), texte.substr(coupure)};
}

/// A text that ends there: a symbol has its own texts at the right of its point.
void ecrireAGauche(dessinPlan& dessin, point2 fin, const std::wstring& contenu, double hauteur, int couleur)
{
    dessin.textes.push_back({fin, contenu, hauteur, couleur, 0.0, dessinPlan::calage::fin});
}

void ajouterCoordonnees(dessinPlan& dessin, const pointImplante& point, point2 fin, unsigned masque, int couleur,
                        double hauteur)
{
    const std::pair<unsigned, std::pair<const wchar_t*, double>> lignes[] = {
        {masqueX, {L"X=", point.x}}, {masqueY, {L"Y=", point.y}}, {masqueZ, {L"Z=", point.z}}};
    for (const auto& [bit, ligne] : lignes) {
        if ((masque & bit) == 0 || ligne.second == inconnu)
            continue;
        fin.y -= interligne * hauteur;
        ecrireAGauche(dessin, fin, ligne.first + texteTrace(ligne.second), hauteur, couleur);
    }
}

/// On the line, a little off it.
void ajouterMesures(dessinPlan& dessin, const pointImplante& point, const donneesStation& station, unsigned masque,
                    int couleur, double hauteur)
{
    std::wstring texte;
    if (masque & masqueDistance)
        texte = L"d=" + texteTrace(distanceVers(station, point.x, point.y));
    const double angle = angleVers(station, point.x, point.y);
    if ((masque & masqueAngle) && angle != inconnu)
        texte += L" A=" + texteTrace(enGrades(angle));
    if (texte.empty())
        return;
    const point2 de = station.station.plan(), vers = point.plan();
    const double sens = std::atan2(vers.y - de.y, vers.x - de.x);
    const point2 ecart = tourner({0.2 * hauteur, 0.0}, sens + std::numbers::pi / 2.0);
    dessin.textes.push_back({(de + vers) * 0.5 + ecart, texte, hauteur, couleur, sens, dessinPlan::calage::milieu});
}

} // namespace

dessinPlan traceStation(const donneesStation& s, unsigned masque, const reglagesImplantation& reglages)
{
    dessinPlan dessin;
    if (!s.station.planConnu())
        return dessin;
    const point2 place = s.station.plan();
    dessin.croix.push_back({place, reglages.tailleStations, reglages.station});
    const point2 bout = boutDuZero(s, reglages);
    fleche(dessin, place, bout, reglages.reference, reglages);
    if (s.visee && s.reference.planConnu())
        dessin.croix.push_back({bout, reglages.tailleStations, reglages.reference});
    if ((masque & masqueNumero) == 0)
        return dessin;
    point2 ligne = place + point2{reglages.tailleStations, -reglages.tailleStations};
    const std::vector<std::wstring> lignes = lignesStation(s);
    ligne.y -= s.etiquette * static_cast<double>(lignes.size()) * interligne * reglages.tailleTextes;
    for (const std::wstring& texte : lignes) {
        dessin.textes.push_back({ligne, texte, reglages.tailleTextes, reglages.station});
        ligne.y -= interligne * reglages.tailleTextes;
    }
    return dessin;
}

dessinPlan tracePoint(const pointImplante& point, const donneesStation* station, unsigned masque, bool verification,
                      const reglagesImplantation& reglages)
{
    dessinPlan dessin;
    if (!point.planConnu())
        return dessin;
    const int couleur = couleurDe(point, verification, reglages);
    const double hauteur = reglages.tailleTextes;
    const point2 etiquette = point.plan() + point2{-0.6 * reglages.taillePoints, 0.2 * hauteur};
    if (masque & masqueNumero) {
        dessin.croix.push_back({point.plan(), reglages.taillePoints, couleur});
        ecrireAGauche(dessin, etiquette, point.nom, hauteur, couleur);
    }
    ajouterCoordonnees(dessin, point, etiquette, masque, couleur, hauteur);
    if ((masque & masqueLigne) == 0 || !station || !station->station.planConnu())
        return dessin;
    dessin.traits.push_back({point.plan(), station->station.plan(), couleur});
    ajouterMesures(dessin, point, *station, masque, couleur, hauteur);
    return dessin;
}

namespace {

/// Places texts beside what they name, as free as can be of one another and of lines.
class etiquetage {
public:
    explicit etiquetage(std::vector<dessinPlan::trait> traits) : m_traits(std::move(traits)) {}

    /// @param ecart from the place to the text
    /// @return false when nobody could read it there, as other texts are all around
    bool poser(dessinPlan::texte& texte, point2 autour, double ecart)
    {
        using calage = dessinPlan::calage;
        const double haut = 0.2 * texte.hauteur, bas = -1.2 * texte.hauteur;
        const std::pair<point2, calage> essais[] = {
            {{ecart, haut}, calage::debut}, {{ecart, bas}, calage::debut},
            {{-ecart, haut}, calage::fin},  {{-ecart, bas}, calage::fin},
            {{0.0, ecart}, calage::milieu}, {{0.0, -ecart - texte.hauteur}, calage::milieu}};
        std::size_t moindre = SIZE_MAX;
        dessinPlan::texte place = texte;
        for (const auto& [essai, cote] : essais) {
            place.place = autour + essai;
            place.ancre = cote;
            const std::size_t genes = genesDe(place.emprise());
            if (genes >= moindre)
                continue;
            moindre = genes;
            texte = place;
        }
        if (moindre > m_traits.size())
            return false;
        m_prises.push_back(texte.emprise());
        return true;
    }

private:
    /// A text over another cannot be read; over a line it can.
    std::size_t genesDe(const boite& b) const
    {
        const auto textes = std::ranges::count_if(m_prises, [&](const boite& autre) { return autre.touche(b); });
        const auto traits = std::ranges::count_if(m_traits, [&](const auto& t) { return b.touche(t.de, t.vers); });
        return static_cast<std::size_t>(textes) * (m_traits.size() + 1) + static_cast<std::size_t>(traits);
    }

    std::vector<dessinPlan::trait> m_traits;
    std::vector<boite> m_prises;
};

/// A text of a small plan, and the place of what it names.
struct nomAPlacer {
    point2 lieu;
    dessinPlan::texte texte;
};

void placerNoms(dessinPlan& dessin, std::vector<nomAPlacer> noms, double ecart)
{
    etiquetage libre(dessin.traits);
    for (nomAPlacer& nom : noms)
        if (libre.poser(nom.texte, nom.lieu, ecart))
            dessin.textes.push_back(std::move(nom.texte));
}

reglagesImplantation reglagesReduits(reglagesImplantation reglages, double tailleTextes)
{
    reglages.tailleTextes = tailleTextes;
    reglages.taillePoints = tailleTextes;
    reglages.tailleStations = 1.5 * tailleTextes;
    reglages.longueurFleche = 1.5 * tailleTextes;
    reglages.largeurFleche = tailleTextes;
    return reglages;
}

/// A reference stands far out as a rule: its direction is enough.
donneesStation sansReference(donneesStation station)
{
    if (station.visee)
        station.v0 = gisementVers(station, station.reference.x, station.reference.y);
    station.visee = false;
    return station;
}

/// What the arrow of a small plan leads to.
std::wstring nomDuZero(const donneesStation& s)
{
    return s.visee ? s.reference.nom : s.v0 == 0.0 ? L"Nord" : L"V0";
}

} // namespace

dessinPlan planReduit(const blocStation& bloc, double cote, bool verification, const reglagesImplantation& reglages)
{
    constexpr std::size_t numerosMontres = 60;
    if (!bloc.station.station.planConnu())
        return {};
    boite etendue = boite::de(bloc.station.station.plan(), bloc.station.station.plan());
    for (const pointImplante& p : bloc.points)
        if (p.planConnu())
            etendue.ajouter(boite::de(p.plan(), p.plan()));
    const double taille = std::max({etendue.xMax - etendue.xMin, etendue.yMax - etendue.yMin, 1e-3});
    const double echelle = 0.9 * cote / taille;
    const double tailleTextes = cote / 40.0 / echelle; // fits the plan, whatever its scale
    const reglagesImplantation petits = reglagesReduits(reglages, tailleTextes);
    const donneesStation orientee = sansReference(bloc.station);
    dessinPlan dessin = traceStation(orientee, 0, petits);
    std::vector<nomAPlacer> noms{
        {boutDuZero(orientee, petits), {{}, nomDuZero(bloc.station), tailleTextes, petits.reference}},
        {bloc.station.station.plan(), {{}, bloc.station.station.nom, 1.2 * tailleTextes, petits.station}}};
    for (std::size_t i = 0; i < bloc.points.size(); ++i) {
        dessinPlan point =
            tracePoint(bloc.points[i], &bloc.station, i < numerosMontres ? masqueNumero | masqueLigne : masqueLigne,
                       verification, petits);
        for (dessinPlan::texte& nom : point.textes)
            noms.push_back({bloc.points[i].plan(), std::move(nom)});
        point.textes.clear();
        dessin.ajouter(point);
    }
    placerNoms(dessin, std::move(noms), 0.6 * petits.taillePoints);
    const point2 coin{etendue.xMin, etendue.yMin};
    return dessin.place(echelle, coin * -echelle + point2{0.05 * cote, 0.05 * cote});
}

dessinPlan croquisImplantation(const resultatImplantation& resultat, const reglagesImplantation& reglages)
{
    const double h = reglages.tailleTextes, ligne = interligne * h, cote = 40.0 * h;
    const double colonnes[] = {cote + 4.0 * h, cote + 16.0 * h, cote + 30.0 * h, cote + 44.0 * h};
    dessinPlan dessin;
    double y = 0.0;
    const auto ecrire = [&](double x, const std::wstring& texte, int couleur) {
        dessin.textes.push_back({{x, y}, texte, h, couleur});
    };
    for (const blocStation& bloc : resultat.blocs) {
        const double haut = y;
        dessin.ajouter(planReduit(bloc, cote, resultat.verification, reglages).place(1.0, {0.0, haut - cote + h}));
        for (const std::wstring& texte : lignesStation(bloc.station)) {
            ecrire(colonnes[0], texte, reglages.station);
            y -= ligne;
        }
        const wchar_t* const titres[] = {L"Num", L"Angle (gr)", L"Distance", L"Dénivelée"};
        for (std::size_t c = 0; c < std::size(titres); ++c)
            ecrire(colonnes[c], titres[c], reglages.reference);
        y -= ligne;
        for (const pointImplante& p : bloc.points) {
            const int couleur = couleurDe(p, resultat.verification, reglages);
            const ligneImplantation cellules = ligneDe(p, &bloc.station);
            const double denivelee = deniveleeVers(bloc.station, p);
            ecrire(colonnes[0], p.nom, couleur);
            ecrire(colonnes[1], cellules[colAngle], couleur);
            ecrire(colonnes[2], cellules[colDistance], couleur);
            if (denivelee != inconnu)
                ecrire(colonnes[3], texteTrace(denivelee, 3), couleur);
            y -= ligne;
        }
        y = std::min(y, haut - cote) - 2.0 * ligne;
    }
    return dessin;
}

namespace {

constexpr double agrandissement = 5.0; // of heights in a section
constexpr int couleurSol = 34, couleurObstacle = 3;

} // namespace

dessinPlan traceCoupe(const coupeVisee& coupe, const pointImplante& point, const donneesStation& station,
                      const reglagesImplantation& reglages)
{
    dessinPlan dessin;
    double plusBas = std::min(coupe.debut.y, coupe.fin.y);
    for (const auto& ligne : coupe.sol)
        for (const auto& s : ligne)
            plusBas = std::min(plusBas, s.place.z);
    const double base = std::floor(plusBas);
    const auto mis = [&](double distance, double z) { return point2{distance, (z - base) * agrandissement}; };
    for (const auto& ligne : coupe.sol)
        for (std::size_t i = 1; i < ligne.size(); ++i)
            dessin.traits.push_back({mis(ligne[i - 1].distance, ligne[i - 1].place.z),
                                     mis(ligne[i].distance, ligne[i].place.z), couleurSol});
    for (const auto& o : coupe.obstacles)
        dessin.traits.push_back({mis(o.distance, o.sol.z), mis(o.distance, o.sol.z + o.hauteur), couleurObstacle});
    const int couleur = couleurDe(point, true, reglages);
    dessin.traits.push_back({mis(coupe.debut.x, coupe.debut.y), mis(coupe.fin.x, coupe.fin.y), couleur});

    const double h = std::max(coupe.fin.x / 60.0, 1e-3); // texts in proportion to the section
    const point2 gauche = mis(0.0, base), droite = mis(coupe.fin.x, base);
    dessin.traits.push_back({gauche, droite, couleurSansVerification});
    for (const auto& [place, bout] :
         {std::pair(gauche, mis(coupe.debut.x, coupe.debut.y)), std::pair(droite, mis(coupe.fin.x, coupe.fin.y))})
        dessin.traits.push_back({place, bout, couleurSansVerification});
    const auto ecrire = [&](point2 place, const std::wstring& texte, int teinte, bool centre) {
        dessin.textes.push_back(
            {place, texte, h, teinte, 0.0, centre ? dessinPlan::calage::milieu : dessinPlan::calage::debut});
    };
    const auto bout = [](const lieuNomme& lieu) { return lieu.nom + L"  Z=" + texteTrace(lieu.z, 2); };
    ecrire(gauche - point2{0.0, 1.5 * h}, bout(station.station), reglages.station, true);
    ecrire(droite - point2{0.0, 1.5 * h}, bout(point), couleur, true);
    ecrire(gauche - point2{0.0, 3.5 * h},
           L"Base " + texteTrace(base, 2) + L"  distance " + texteTrace(coupe.fin.x, 2) + L"  hauteurs x " +
               texteTrace(agrandissement, 0),
           couleurSansVerification, false);
    ecrire(gauche - point2{0.0, 5.5 * h}, phraseVisibilite(point, reglages.hauteur), couleur, false);
    if (point.pire) {
        const obstruction& o = *point.pire;
        dessin.traits.push_back(
            {mis(o.distance, o.place.z - o.depassement), mis(o.distance, o.place.z), reglages.nonVisible});
        dessin.croix.push_back({mis(o.distance, o.place.z), h, reglages.nonVisible});
    }
    return dessin;
}
