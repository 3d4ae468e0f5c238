#include "tools/transformationPlane.h"

#include <functional>

namespace {

/// Weighted sums of the active pairs about their centres; u the source, v the target.
struct sommes {
    double poids = 0.0;
    int nombre = 0;
    point2 centreSource, centreCible;
    double uxux = 0.0, uxuy = 0.0, uyuy = 0.0, uxvx = 0.0, uyvx = 0.0, uxvy = 0.0, uyvy = 0.0;

    explicit sommes(std::span<const couplePoints> couples)
    {
        // Shifted to the first pair, so that the mean of far coordinates keeps its digits.
        const point2 source = couples.empty() ? point2{} : couples[0].source;
        const point2 cible = couples.empty() ? point2{} : couples[0].cible;
        pourActifs(couples, [&](const couplePoints& c) {
            ++nombre;
            poids += c.poids;
            centreSource = centreSource + (c.source - source) * c.poids;
            centreCible = centreCible + (c.cible - cible) * c.poids;
        });
        if (poids > 0.0) {
            centreSource = source + centreSource * (1.0 / poids);
            centreCible = cible + centreCible * (1.0 / poids);
        }
        pourActifs(couples, [&](const couplePoints& c) { cumuler(c); });
    }

    double carre() const { return uxux + uyuy; }
    double determinant() const { return uxux * uyuy - uxuy * uxuy; }

private:
    static void pourActifs(std::span<const couplePoints> couples, const std::function<void(const couplePoints&)>& pour)
    {
        for (const couplePoints& c : couples)
            if (c.actif)
                pour(c);
    }
    void cumuler(const couplePoints& c)
    {
        const point2 u = c.source - centreSource, v = c.cible - centreCible;
        uxux += c.poids * u.x * u.x;
        uxuy += c.poids * u.x * u.y;
        uyuy += c.poids * u.y * u.y;
        uxvx += c.poids * u.x * v.x;
        uyvx += c.poids * u.y * v.x;
        uxvy += c.poids * u.x * v.y;
        uyvy += c.poids * u.y * v.y;
    }
};

int couplesNecessaires(typeTransformation type)
{
    return type == typeTransformation::translation ? 1 : type == typeTransformation::similitude ? 2 : 3;
}

/// The first pair whose coordinates are beyond all places; a sum of squares would be no number.
std::wstring refusDesPlaces(std::span<const couplePoints> couples)
{
    for (const couplePoints& c : couples)
        for (const double v : {c.source.x, c.source.y, c.cible.x, c.cible.y})
            if (c.actif && !(std::abs(v) <= coordonneeAuPlus))
                return L"Le couple « " + c.nom + L" » a une coordonnée trop grande.";
    return {};
}

std::wstring refus(const sommes& s, typeTransformation type)
{
    const int minimum = couplesNecessaires(type);
    if (s.nombre < minimum)
        return L"Il faut au moins " + std::to_wstring(minimum) +
               (minimum > 1 ? L" couples actifs pour cette transformation." : L" couple actif.");
    if (type != typeTransformation::translation && !(s.carre() > 0.0))
        return L"Les points sources sont tous au même endroit.";
    if (type == typeTransformation::affine && !(s.determinant() > 1e-12 * s.carre() * s.carre()))
        return L"Les points sources sont alignés : ils ne déterminent pas une transformation affine.";
    return {};
}

transformationPlane resoudre(const sommes& s, typeTransformation type)
{
    transformationPlane t;
    t.centre = s.centreSource;
    t.cible = s.centreCible;
    if (type == typeTransformation::similitude) {
        t.xx = t.yy = (s.uxvx + s.uyvy) / s.carre();
        t.yx = (s.uxvy - s.uyvx) / s.carre();
        t.xy = -t.yx;
    } else if (type == typeTransformation::affine) {
        const double d = s.determinant();
        t.xx = (s.uxvx * s.uyuy - s.uyvx * s.uxuy) / d;
        t.xy = (s.uyvx * s.uxux - s.uxvx * s.uxuy) / d;
        t.yx = (s.uxvy * s.uyuy - s.uyvy * s.uxuy) / d;
        t.yy = (s.uyvy * s.uxux - s.uxvy * s.uxuy) / d;
    }
    return t;
}

/// Cofactors of the coefficients of x and of y, the same in X and in Y, and what binds the two.
struct cofacteurs {
    double x = 0.0, y = 0.0, xy = 0.0;
};

cofacteurs cofacteursDe(const sommes& s, typeTransformation type)
{
    if (type == typeTransformation::similitude)
        return {1.0 / s.carre(), 1.0 / s.carre(), 0.0};
    if (type == typeTransformation::affine)
        return {s.uyuy / s.determinant(), s.uxux / s.determinant(), -s.uxuy / s.determinant()};
    return {};
}

/// Of where a point of the source goes, either axis: the farther from the centre, the less certain.
double cofacteurDuPoint(point2 p, const sommes& s, const cofacteurs& q)
{
    const point2 u = p - s.centreSource;
    return 1.0 / s.poids + u.x * u.x * q.x + 2.0 * u.x * u.y * q.xy + u.y * u.y * q.y;
}

/// Residuals that only rounding left say nothing. With one pair more than are needed the others fit whichever goes: all
/// stand alike, and rounding would name one of them.
void juger(std::span<const couplePoints> couples, resultatTransformation& r)
{
    constexpr double arrondi = 1e-7;
    constexpr int unDeTrop = 2; // degrees of freedom
    double pire = 0.0;
    for (std::size_t i = 0; i < couples.size(); ++i) {
        ecartCouple& e = r.ecarts[i];
        if (!couples[i].actif || !r.s0 || !(*r.s0 > 0.0) || e.redondance < 1e-9 || std::hypot(e.vx, e.vy) < arrondi)
            continue;
        e.normalise = std::hypot(e.vx, e.vy) * std::sqrt(couples[i].poids / e.redondance) / *r.s0;
        if (*e.normalise > pire && r.degresDeLiberte > unDeTrop) {
            pire = *e.normalise;
            r.pire = i;
        }
    }
}

} // namespace

std::variant<resultatTransformation, std::wstring> calculerTransformation(std::span<const couplePoints> couples,
                                                                          typeTransformation type)
{
    if (std::wstring raison = refusDesPlaces(couples); !raison.empty())
        return raison;
    const sommes s(couples);
    if (std::wstring raison = refus(s, type); !raison.empty())
        return raison;
    resultatTransformation r;
    r.transformation = resoudre(s, type);
    if (!(std::abs(r.transformation.determinant()) > 1e-18))
        return L"Les points cibles sont confondus ou alignés : la transformation écraserait les objets.";
    r.degresDeLiberte = 2 * (s.nombre - couplesNecessaires(type));
    const cofacteurs q = cofacteursDe(s, type);
    double carres = 0.0;
    for (const couplePoints& c : couples) {
        const point2 v = r.transformation.appliquer(c.source) - c.cible;
        ecartCouple e{v.x, v.y, 0.0, std::nullopt};
        if (c.actif) {
            e.redondance = std::max(0.0, 1.0 - c.poids * cofacteurDuPoint(c.source, s, q));
            carres += c.poids * scalaire(v, v);
        }
        r.ecarts.push_back(e);
    }
    if (r.degresDeLiberte > 0)
        r.s0 = std::sqrt(carres / r.degresDeLiberte);
    r.sigmaCentre = 1.0 / std::sqrt(s.poids);
    r.sigmaTranslation = std::sqrt(std::max(0.0, cofacteurDuPoint({0.0, 0.0}, s, q)));
    r.sigmaX = std::sqrt(q.x);
    r.sigmaY = std::sqrt(q.y);
    juger(couples, r);
    return r;
}
