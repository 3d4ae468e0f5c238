#include "tools/rapportTransformation.h"

#include <algorithm>
#include <locale>
#include <numbers>
#include <sstream>

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

/// What a transformation is made of, as it is shown.
struct coefficient {
    std::wstring_view nom;
    double valeur;
    double sigma; ///< for s0 = 1
    int decimales;
    std::wstring_view unite;
};

constexpr std::wstring_view unitesDuDessin = L"unités du dessin";
constexpr std::wstring_view sansUnite = L"sans unité";

std::vector<coefficient> coefficientsDe(typeTransformation type, const resultatTransformation& r)
{
    const transformationPlane& t = r.transformation;
    const point2 origine = t.translation();
    std::vector<coefficient> tous{{L"tX", origine.x, r.sigmaTranslation, 4, unitesDuDessin},
                                  {L"tY", origine.y, r.sigmaTranslation, 4, unitesDuDessin}};
    if (type == typeTransformation::similitude) {
        tous.push_back({L"a", t.xx, r.sigmaX, 9, sansUnite});
        tous.push_back({L"b", t.yx, r.sigmaX, 9, sansUnite});
        tous.push_back({L"Facteur d'échelle", t.echelle(), r.sigmaX, 8, sansUnite});
        // Angles of bearings run clockwise, those of the plane the other way.
        tous.push_back(
            {L"Rotation (sens trigonométrique)", t.rotation() * grades, r.sigmaX / t.echelle() * grades, 5, L"gr"});
    } else if (type == typeTransformation::affine) {
        tous.push_back({L"a", t.xx, r.sigmaX, 9, sansUnite});
        tous.push_back({L"b", t.xy, r.sigmaY, 9, sansUnite});
        tous.push_back({L"c", t.yx, r.sigmaX, 9, sansUnite});
        tous.push_back({L"d", t.yy, r.sigmaY, 9, sansUnite});
    }
    return tous;
}

const wchar_t* formuleDe(typeTransformation type)
{
    switch (type) {
    case typeTransformation::translation:
        return L"X = x + tX ; Y = y + tY";
    case typeTransformation::similitude:
        return L"X = a x - b y + tX ; Y = b x + a y + tY";
    default:
        return L"X = a x + b y + tX ; Y = c x + d y + tY";
    }
}

/// "tX 5.0000 ± 0.0100, tY 7.0000 ± 0.0100 (unités du dessin)": those of one unit together.
std::wstring phraseCoefficients(std::span<const coefficient> memeUnite, std::optional<double> s0)
{
    std::wstring phrase;
    for (const coefficient& c : memeUnite) {
        phrase += (phrase.empty() ? L"" : L", ") + std::wstring(c.nom) + L" " + formaterFixe(c.valeur, c.decimales);
        if (s0)
            phrase += L" ± " + formaterFixe(c.sigma * *s0, c.decimales);
    }
    return phrase.append(L" (").append(memeUnite.front().unite).append(L")");
}

/// Weights span many powers of ten.
std::wstring poidsEcrit(double poids)
{
    std::wostringstream texte;
    texte.imbue(std::locale::classic());
    texte << poids;
    return texte.str();
}

void ecrireCoefficients(rapportOutils& rapport, typeTransformation type, const resultatTransformation& r)
{
    rapport.sousTitre(nomType(type) + L" : " + formuleDe(type));
    htmlTable table = rapport.tableau({L"Coefficient", L"Valeur", L"Écart-type", L"Unité"});
    for (const coefficient& c : coefficientsDe(type, r)) {
        table.beginRow();
        rapportOutils::texte(table, c.nom);
        rapportOutils::nombre(table, c.valeur, c.decimales);
        rapportOutils::nombre(table, r.s0 ? c.sigma * *r.s0 : inconnu, c.decimales);
        rapportOutils::texte(table, c.unite);
    }
    rapport.ajouter(table);
}

/// What the pairs say of their own precision, and the pair that fits worst.
void ajouterQualite(std::vector<std::wstring>& phrases, std::span<const couplePoints> couples,
                    const resultatTransformation& r)
{
    phrases.push_back(r.s0 ? L"Écart-type d'une coordonnée (poids 1) : " + formaterFixe(*r.s0, 4) + L" ; " +
                                 std::to_wstring(r.degresDeLiberte) + L" degrés de liberté ; place du centre à ± " +
                                 formaterFixe(r.sigmaCentre * *r.s0, 4)
                           : std::wstring(L"Aucune mesure surabondante : les écarts ne disent rien de la précision."));
    if (r.pire)
        phrases.push_back(L"Le couple qui s'accorde le moins : " + couples[*r.pire].nom + L" (" +
                          formaterFixe(*r.ecarts[*r.pire].normalise, 1) + L" fois son écart-type)");
    else if (std::ranges::any_of(r.ecarts, [](const ecartCouple& e) { return e.normalise.has_value(); }))
        phrases.push_back(L"Le couple qui s'accorde le moins : aucun ne se distingue, il en faudrait un de plus.");
}

} // namespace

std::vector<std::wstring> phrasesTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                                const resultatTransformation& r)
{
    const std::vector<coefficient> tous = coefficientsDe(type, r);
    std::vector<std::wstring> phrases{nomType(type) + L" : " + formuleDe(type)};
    for (auto debut = tous.begin(); debut != tous.end();) {
        const auto fin = std::find_if(debut, tous.end(), [&](const coefficient& c) { return c.unite != debut->unite; });
        phrases.push_back(phraseCoefficients({debut, fin}, r.s0));
        debut = fin;
    }
    ajouterQualite(phrases, couples, r);
    return phrases;
}

htmlDocument rapportTransformation(std::span<const couplePoints> couples, typeTransformation type,
                                   const resultatTransformation& r)
{
    rapportOutils rapport(L"Transformation plane");
    ecrireCoefficients(rapport, type, r);
    std::vector<std::wstring> qualite;
    ajouterQualite(qualite, couples, r);
    for (const std::wstring& phrase : qualite)
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
        rapportOutils::nombreEcrit(table, poidsEcrit(c.poids));
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
