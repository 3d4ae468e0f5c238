#include "implantation/gererObstacles.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "services/lettres.h"
#include "services/motSaisi.h"
#include "services/selection.h"

#include "aced.h"
#include "dbads.h"
#include "dbcurve.h"
#include "dbents.h"

namespace {

/// In force from one obstacle to the next, and to the next time.
struct obstacleCourant {
    bool lignes = false;
    double hauteur = 2.0;
    double taille = 0.5;
    int couleur = 1;
};
obstacleCourant& courant()
{
    static obstacleCourant c;
    return c;
}

std::wstring invite(const wchar_t* forme, double valeur)
{
    wchar_t texte[160];
    std::swprintf(texte, std::size(texte), forme, valeur);
    return texte;
}

bool memeEntite(const std::unique_ptr<obstacleImplantation>& obstacle, const AcDbObjectId& id)
{
    return obstacle->id == id;
}

void signalerRefus()
{
    acutPrintf(L"\nCette entité ne peut pas être modifiée : calque verrouillé ?");
}

/// One obstacle an entity: the one it was gives way.
void ajouter(travailImplantation& travail, std::unique_ptr<obstacleImplantation> neuf)
{
    if (!neuf->save()) {
        signalerRefus();
        return;
    }
    neuf->highlight(true);
    std::erase_if(travail.obstacles, [&](const auto& o) { return memeEntite(o, neuf->id); });
    travail.obstacles.push_back(std::move(neuf));
}

bool ajouterLigne(travailImplantation& travail, const AcDbObjectId& id)
{
    {
        const AcDbObjectPointer<AcDbCurve> courbe(id);
        if (courbe.openStatus() != Acad::eOk)
            return false;
    }
    auto ligne = std::make_unique<obstacleLineaireImplantation>();
    ligne->id = id;
    ligne->hauteur = courant().hauteur;
    ligne->couleur = courant().couleur;
    ajouter(travail, std::move(ligne));
    return true;
}

bool ajouterPoint(travailImplantation& travail, const AcDbObjectId& id, double taille)
{
    auto point = std::make_unique<obstaclePonctuelImplantation>();
    if (!point->prendreCentre(id))
        return false;
    point->id = id;
    point->taille = taille;
    point->hauteur = courant().hauteur;
    point->couleur = courant().couleur;
    ajouter(travail, std::move(point));
    return true;
}

enum class suite { continuer, finir };

void refuser()
{
    acutPrintf(L"\nCet \u00e9l\u00e9ment ne peut pas \u00eatre un obstacle de ce genre");
}

void designerLignes(travailImplantation& travail)
{
    ads_name nom;
    ads_point place;
    AcDbObjectId id;
    if (acedEntSel(L"\nElement :", nom, place) == RTNORM && acdbGetObjectId(id, nom) == Acad::eOk &&
        !ajouterLigne(travail, id))
        refuser();
}

/// A size typed or shown from the centre; "Position" asks for a place on the rim.
bool demanderTaille(const obstaclePonctuelImplantation& essai, double& taille)
{
    const ads_point centre{essai.X, essai.Y, 0.0};
    double proposee = essai.taille > 0.0 ? essai.taille : courant().taille;
    acedInitGet(RSG_NONEG, L"Position");
    const int statut =
        acedGetDist(centre, invite(L"\nPosition / Indiquez la taille [%.2f]: ", proposee).c_str(), &taille);
    if (statut == RTNONE) {
        taille = proposee;
        return true;
    }
    if (statut != RTKWORD)
        return statut == RTNORM;
    ads_point bord;
    if (acedGetPoint(centre, L"\nPosition du bord :", bord) != RTNORM)
        return false;
    taille = std::hypot(bord[0] - essai.X, bord[1] - essai.Y);
    return true;
}

AcDbObjectId blocDe(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    return reference.openStatus() == Acad::eOk ? reference->blockTableRecord() : AcDbObjectId();
}

/// Nothing on a cancel.
std::optional<bool> demanderIdentiques()
{
    ACHAR reponse[133];
    acedInitGet(0, L"Oui Non");
    // Intended spelling: users know the question so.
    const int statut = acedGetKword(L"\nAppliquer les parametres aux blocs indentiques (Oui / Non) [Non]", reponse);
    if (statut == RTNONE)
        return false;
    if (statut != RTNORM)
        return std::nullopt;
    return enMinuscules(reponse) == L"oui";
}

void designerPonctuels(travailImplantation& travail)
{
    ads_name nom;
    ads_point place;
    AcDbObjectId id;
    if (acedEntSel(L"\nBlock :", nom, place) != RTNORM || acdbGetObjectId(id, nom) != Acad::eOk)
        return;
    obstaclePonctuelImplantation essai;
    if (!essai.prendreCentre(id))
        return refuser();
    double taille = 0.0;
    if (!demanderTaille(essai, taille))
        return;
    courant().taille = taille;
    const AcDbObjectId bloc = blocDe(id);
    const auto identiques = bloc.isNull() ? std::optional(false) : demanderIdentiques();
    if (!identiques)
        return;
    ajouterPoint(travail, id, taille);
    if (!*identiques)
        return;
    for (const AcDbObjectId& autre : selectionDuDessin(L"INSERT"))
        if (autre != id && blocDe(autre) == bloc)
            ajouterPoint(travail, autre, taille);
}

void montrerTous(const travailImplantation& travail)
{
    for (const auto& obstacle : travail.obstacles)
        obstacle->highlight(true);
}

/// A whole number of a colour; nothing changes on Enter, a cancel or a colour that is none.
void demanderCouleur()
{
    int couleur = 0;
    const std::wstring texte = L"\nCouleur des obstacles [" + std::to_wstring(courant().couleur) + L"]: ";
    acedInitGet(RSG_NONEG, nullptr);
    if (acedGetInt(texte.c_str(), &couleur) == RTNORM && couleur >= 1 && couleur <= 255)
        courant().couleur = couleur;
}

void retirer(travailImplantation& travail, const AcDbObjectId& id)
{
    const auto trouve = std::ranges::find_if(travail.obstacles, [&](const auto& o) { return memeEntite(o, id); });
    if (trouve == travail.obstacles.end()) {
        acutPrintf(L"\nCet \u00e9l\u00e9ment n'est pas un obstacle");
        return;
    }
    if (!(*trouve)->detach()) {
        signalerRefus();
        return;
    }
    travail.obstacles.erase(trouve);
}

void annuler(travailImplantation& travail)
{
    ads_name nom;
    ads_point place;
    AcDbObjectId id;
    acedInitGet(0, L"Tous Selection");
    const int statut = acedEntSel(L"\nTous/ Selection / element a ne plus considerer comme obstacle:", nom, place);
    if (statut == RTNORM && acdbGetObjectId(id, nom) == Acad::eOk)
        return retirer(travail, id);
    if (statut != RTKWORD)
        return;
    std::vector<AcDbObjectId> ids;
    if (enMinuscules(motSaisi()) == L"tous") {
        for (const auto& obstacle : travail.obstacles)
            ids.push_back(obstacle->id);
    } else {
        for (const AcDbObjectId& choisi : demanderSelection(L"\nChoix des objets", L"*"))
            if (std::ranges::any_of(travail.obstacles, [&](const auto& o) { return memeEntite(o, choisi); }))
                ids.push_back(choisi);
    }
    for (const AcDbObjectId& un : ids)
        retirer(travail, un);
}

int demander(double& hauteur)
{
    const obstacleCourant& c = courant();
    acedInitGet(RSG_NONEG, c.lignes ? L"POnctuel Annuler Redessiner Couleur Quitter"
                                    : L"Lignes Annuler Redessiner Couleur Quitter");
    // The keyword of line mode has no "s" and its prompt has: intended.
    const wchar_t* const forme =
        c.lignes ? L"\nPOnctuels / Annuler / Redessiner / Couleur / Quitter / Hauteur des obstacles [ %.3f ]"
                 : L"\nLignes / Annuler / Redessiner / Couleur / Quitter / Hauteur des obstacles [ %.3f ]";
    return acedGetDist(nullptr, invite(forme, c.hauteur).c_str(), &hauteur);
}

suite suivreMot(travailImplantation& travail, const std::wstring& mot)
{
    if (mot == L"lignes" || mot == L"ponctuel")
        courant().lignes = mot == L"lignes";
    else if (mot == L"annuler")
        annuler(travail);
    else if (mot == L"redessiner")
        montrerTous(travail);
    else if (mot == L"couleur")
        demanderCouleur();
    else
        return suite::finir;
    return suite::continuer;
}

} // namespace

void gererObstacles(travailImplantation& travail)
{
    montrerTous(travail);
    suite s = suite::continuer;
    while (s == suite::continuer) {
        double hauteur = courant().hauteur;
        const int statut = demander(hauteur);
        if (statut == RTKWORD) {
            s = suivreMot(travail, enMinuscules(motSaisi()));
        } else if (statut == RTNORM || statut == RTNONE) {
            if (statut == RTNORM)
                courant().hauteur = hauteur;
            if (courant().lignes)
                designerLignes(travail);
            else
                designerPonctuels(travail);
        } else {
            s = suite::finir;
        }
    }
    for (const auto& obstacle : travail.obstacles)
        obstacle->highlight(false);
}
