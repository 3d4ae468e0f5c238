#include "mesures/tableauMesures.h"

#include <cstdio>

namespace {

constexpr double croissanceAdmise = 3.0;

} // namespace

tableauMesures::tableauMesures(std::vector<int> tailles, std::string item) :
    m_tailles(std::move(tailles)),
    m_item(std::move(item))
{
}

void tableauMesures::enTete() const
{
    std::printf("%-40s", ("seconds and ns a " + m_item).c_str());
    for (const int taille : m_tailles)
        std::printf("  %9d %7s ", taille, "");
    std::printf("  growth (* beyond x %.0f)\n", croissanceAdmise);
}

/// Prints the row but for its end.
tableauMesures::parItem tableauMesures::ligne(const std::string& nom,
                                              const std::function<double(int taille)>& secondes) const
{
    std::printf("%-40s", nom.c_str());
    parItem ns{};
    for (const int taille : m_tailles) {
        const double duree = secondes(taille);
        ns.dernier = duree / taille * 1e9;
        if (taille == m_tailles.front())
            ns.premier = ns.dernier;
        std::printf("  %7.4f s %7.1f", duree, ns.dernier);
        std::fflush(stdout);
    }
    const double croissance = ns.dernier / ns.premier;
    std::printf("  x %5.2f%c", croissance, croissance > croissanceAdmise ? '*' : ' ');
    return ns;
}

void tableauMesures::croissance(const std::string& nom, const std::function<double(int taille)>& secondes,
                                double plancher)
{
    const auto [premier, dernier] = ligne(nom, secondes);
    const double admis = croissanceAdmise * (premier + plancher);
    std::printf("  at most %6.0f ns  %s\n", admis, verdict(dernier <= admis));
}

double tableauMesures::plancher(const std::string& nom, const std::function<double(int taille)>& secondes) const
{
    const double dernier = ligne("floor: " + nom, secondes).dernier;
    std::printf("\n");
    return dernier;
}

void tableauMesures::rapport(const std::string& nom, double secondes, double plancher, double admis)
{
    std::printf("%-40s  %7.4f s  floor %7.4f s  %6.3f x the floor", nom.c_str(), secondes, plancher,
                secondes / plancher);
    if (admis > 0.0)
        std::printf("  at most %.3g  %s", admis, verdict(secondes / plancher <= admis));
    std::printf("\n");
}

const char* tableauMesures::verdict(bool ligneTenue)
{
    m_tenu = m_tenu && ligneTenue;
    return ligneTenue ? "held" : "NOT HELD";
}
