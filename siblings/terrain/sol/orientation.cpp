#include "sol/orientation.h"

#include <array>
#include <cmath>

namespace {

/// A sum of doubles without rounding: components that do not overlap, the smallest first (J. R. Shewchuk, "Adaptive
/// Precision Floating-Point Arithmetic and Fast Robust Geometric Predicates").
class sommeExacte {
public:
    void ajouterProduit(double a, double b)
    {
        const double produit = a * b;
        ajouter(std::fma(a, b, -produit));
        ajouter(produit);
    }
    double arrondie() const
    {
        double somme = 0.0;
        for (int i = 0; i < nombre; ++i)
            somme += parts[static_cast<std::size_t>(i)];
        return somme;
    }

private:
    void ajouter(double terme)
    {
        int gardees = 0;
        for (int i = 0; i < nombre; ++i) {
            const double part = parts[static_cast<std::size_t>(i)];
            const double somme = terme + part;
            const double b = somme - terme;
            const double reste = (terme - (somme - b)) + (part - b);
            if (reste != 0.0)
                parts[static_cast<std::size_t>(gardees++)] = reste;
            terme = somme;
        }
        parts[static_cast<std::size_t>(gardees++)] = terme;
        nombre = gardees;
    }

    std::array<double, 12> parts{};
    int nombre = 0;
};

double orientationExacte(const lieuSol& a, const lieuSol& b, const lieuSol& c)
{
    sommeExacte somme;
    somme.ajouterProduit(a.x, b.y);
    somme.ajouterProduit(-a.x, c.y);
    somme.ajouterProduit(-c.x, b.y);
    somme.ajouterProduit(-a.y, b.x);
    somme.ajouterProduit(a.y, c.x);
    somme.ajouterProduit(c.y, b.x);
    return somme.arrondie();
}

} // namespace

double orientation(const lieuSol& a, const lieuSol& b, const lieuSol& c)
{
    const double gauche = (a.x - c.x) * (b.y - c.y);
    const double droite = (a.y - c.y) * (b.x - c.x);
    const double aire = gauche - droite;
    constexpr double borne = 3.3306690738754716e-16; // (3 + 16 e) e, e half a unit in the last place of 1
    if (std::abs(aire) >= borne * (std::abs(gauche) + std::abs(droite)))
        return aire;
    return orientationExacte(a, b, c);
}
