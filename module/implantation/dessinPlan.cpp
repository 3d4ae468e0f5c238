#include "implantation/dessinPlan.h"

void dessinPlan::ajouter(const dessinPlan& autre)
{
    croix.insert(croix.end(), autre.croix.begin(), autre.croix.end());
    traits.insert(traits.end(), autre.traits.begin(), autre.traits.end());
    textes.insert(textes.end(), autre.textes.begin(), autre.textes.end());
    triangles.insert(triangles.end(), autre.triangles.begin(), autre.triangles.end());
}

dessinPlan dessinPlan::place(double echelle, point2 deplacement) const
{
    const auto mis = [&](point2 p) { return p * echelle + deplacement; };
    dessinPlan d = *this;
    for (marque& c : d.croix)
        c = {mis(c.centre), c.taille * echelle, c.couleur};
    for (trait& t : d.traits)
        t = {mis(t.de), mis(t.vers), t.couleur};
    for (texte& t : d.textes) {
        t.place = mis(t.place);
        t.hauteur *= echelle;
    }
    for (triangle& t : d.triangles)
        for (point2& coin : t.coins)
            coin = mis(coin);
    return d;
}

boite dessinPlan::texte::emprise() const
{
    const double largeur = 0.7 * hauteur * static_cast<double>(contenu.size());
    const double part = ancre == calage::debut ? 0.0 : ancre == calage::milieu ? 0.5 : 1.0;
    const point2 coin = place - point2{part * largeur, 0.0};
    return boite::de(coin, coin + point2{largeur, hauteur});
}

boite dessinPlan::etendue() const
{
    boite b;
    for (const marque& c : croix)
        b.ajouter(boite::de(c.centre, c.centre).elargie(c.taille / 2.0));
    for (const trait& t : traits)
        b.ajouter(boite::de(t.de, t.vers));
    for (const texte& t : textes)
        b.ajouter(t.emprise());
    for (const triangle& t : triangles)
        for (const point2& coin : t.coins)
            b.ajouter(boite::de(coin, coin));
    return b;
}
