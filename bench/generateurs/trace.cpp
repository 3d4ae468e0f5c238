#include "generateurs/trace.h"

#include <cmath>

double longueur(const lieu& v)
{
    return std::hypot(v.x, v.y);
}

lieu direction(const lieu& de, const lieu& vers)
{
    return (vers - de) * (1.0 / longueur(vers - de));
}

lieu aGauche(const lieu& v)
{
    return {-v.y, v.x};
}

std::vector<sommetTrace> parallele(const std::vector<lieu>& axe, double rayon, double ecart)
{
    std::vector<sommetTrace> trace;
    trace.push_back({axe.front() + aGauche(direction(axe[0], axe[1])) * ecart, 0.0});
    for (std::size_t i = 1; i + 1 < axe.size(); ++i) {
        const lieu avant = direction(axe[i - 1], axe[i]), apres = direction(axe[i], axe[i + 1]);
        const double deviation =
            std::atan2(avant.x * apres.y - avant.y * apres.x, avant.x * apres.x + avant.y * apres.y);
        // The corner of the parallel lies on the bisector; its arc touches both sides at r·tan(deviation/2) from it.
        const lieu coin = axe[i] + (aGauche(avant) + aGauche(apres)) * (ecart / (1.0 + std::cos(deviation)));
        const double r = deviation > 0.0 ? rayon - ecart : rayon + ecart;
        const double tangente = r * std::tan(std::abs(deviation) / 2);
        trace.push_back({coin - avant * tangente, std::tan(deviation / 4)});
        trace.push_back({coin + apres * tangente, 0.0});
    }
    trace.push_back({axe.back() + aGauche(direction(axe[axe.size() - 2], axe.back())) * ecart, 0.0});
    return trace;
}
