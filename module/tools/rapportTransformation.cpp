#include "tools/rapportTransformation.h"

#include <numbers>

#include "services/formatNombres.h"
#include "services/grandeur.h"
#include "tools/rapportOutils.h"

namespace {

constexpr double grades = 200.0 / std::numbers::pi;

std::wstring nomType(typeTransformation type)
{
    switch (type) {
    case typeTransformation::translation:
        return L"Translation";
    case typeTransformation::similitude:
        return L"Similitude";
    default:
        return L"Transformation affine";
    }
}

std::wstring plusOuMoins(double sigma, double s0, int decimales)
{
    return L" ± " + formaterFixe(sigma * s0, decimales);
}

/// Angles of bearings run clockwise, those of the plane the other way.
std::wstring phraseSimilitude(const resultatTransformation& r)
{
    const transformationPlane& t = r.transformation;
    std::wstring phrase = L"Facteur d'échelle " + formaterFixe(t.echelle(), 8);
    if (r.s0)
        phrase += plusOuMoins(r.sigmaCoefficient, *r.s0, 8);
    phrase += L" ; rotation (sens trigonométrique) " + formaterFixe(t.rotation() * grades, 5) + L" gr";
    if (r.s0 && t.echelle() > 0.0)
        phrase += plusOuMoins(r.sigmaCoefficient / t.echelle() * grades, *r.s0, 5);
    return phrase;
}

std::wstring phraseAffine(const transformationPlane& t)
{
    return L"X = " + formaterFixe(t.xx, 9) + L" x + " + formaterFixe(t.xy, 9) + L" y + tX ; Y = " +
           formaterFixe(t.yx, 9) + L" x + " + formaterFixe(t.yy, 9) + L" y + tY";
}

} // namespace

std::vector<std::wstring> phrasesTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                                const resultatTransformation& r)
{
    const point2 t = r.transformation.translation();
    std::vector<std::wstring> phrases;
    phrases.push_back(nomType(type) + L" : tX " + formaterFixe(t.x, 4) + L", tY " + formaterFixe(t.y, 4));
    if (type == typeTransformation::similitude)
        phrases.push_back(phraseSimilitude(r));
    else if (type == typeTransformation::affine)
        phrases.push_back(phraseAffine(r.transformation));
    phrases.push_back(r.s0 ? L"Écart-type d'une coordonnée (poids 1) : " + formaterFixe(*r.s0, 4) + L" ; " +
                                 std::to_wstring(r.degresDeLiberte) + L" degrés de liberté ; place du centre à" +
                                 plusOuMoins(r.sigmaTranslation, *r.s0, 4)
                           : std::wstring(L"Aucune mesure surabondante : les écarts ne disent rien de la précision."));
    if (r.pire)
        phrases.push_back(L"Le couple qui s'accorde le moins : " + couples[*r.pire].nom + L" (" +
                          formaterFixe(*r.ecarts[*r.pire].normalise, 1) + L" fois son écart-type)");
    return phrases;
}

htmlDocument rapportTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                   const resultatTransformation& r)
{
    rapportOutils rapport(L"Transformation plane");
    for (const std::wstring& phrase : phrasesTransformation(couples, type, r))
        rapport.paragraphe(phrase);
    rapport.sousTitre(L"Couples de points");
    htmlTable table = rapport.tableau({L"Couple", L"X source", L"Y source", L"X cible", L"Y cible", L"Poids", L"vX",
                                       L"vY", L"Écart", L"Redondance", L"Écart normé", L""});
    for (std::size_t i = 0; i < couples.size(); ++i) {
        const couplePoints& c = couples[i];
        const ecartCouple& e = r.ecarts[i];
        table.beginRow();
        rapportOutils::texte(table, c.nom);
        for (const double valeur : {c.source.x, c.source.y, c.cible.x, c.cible.y})
            rapportOutils::nombre(table, valeur, 4);
        rapportOutils::nombre(table, c.poids, 2);
        for (const double valeur : {e.vx, e.vy, std::hypot(e.vx, e.vy)})
            rapportOutils::nombre(table, valeur, 4);
        rapportOutils::nombre(table, c.actif ? e.redondance : inconnu, 2);
        rapportOutils::nombre(table, e.normalise.value_or(inconnu), 2);
        rapportOutils::texte(table, !c.actif ? L"écarté" : r.pire == i ? L"s'accorde le moins" : L"");
    }
    rapport.ajouter(table);
    rapport.paragraphe(L"Écarts : source transformée moins cible.");
    return rapport.document();
}
