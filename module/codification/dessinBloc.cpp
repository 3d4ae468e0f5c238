#include "codification/dessinBloc.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "codification/parcoursBloc.h"

#include "dbcurve.h"
#include "dbents.h"
#include "dbpl.h"

namespace {

constexpr std::size_t plusDeTraces = 2000; // what no symbol has
constexpr int plusProfond = 8;             // blocks in blocks

/// Steps that show a curve round. The parameter runs by one a vertex on polylines, by the angle on arcs.
int pasDe(const AcDbCurve& courbe, double longueur)
{
    if (AcDbLine::cast(&courbe))
        return 1;
    const bool parSommet = courbe.isKindOf(AcDbPolyline::desc()) || courbe.isKindOf(AcDb2dPolyline::desc()) ||
                           courbe.isKindOf(AcDb3dPolyline::desc());
    constexpr double parUnite = 8.0, courbeLibre = 64.0, auPlus = 4096.0;
    return static_cast<int>(std::clamp(parSommet ? std::ceil(longueur) * parUnite : courbeLibre, 1.0, auPlus));
}

void ajouterCourbe(const AcDbCurve& courbe, dessinBloc& dessin)
{
    double debut = 0.0, fin = 0.0;
    if (courbe.getStartParam(debut) != Acad::eOk || courbe.getEndParam(fin) != Acad::eOk)
        return;
    const int pas = pasDe(courbe, fin - debut);
    dessinBloc::trace trace;
    AcGePoint3d point;
    for (int i = 0; i <= pas; ++i)
        if (courbe.getPointAtParam(debut + (fin - debut) * i / pas, point) == Acad::eOk)
            trace.emplace_back(point.x, point.y);
    dessin.lignes.push_back(std::move(trace));
}

void ajouterAplat(const AcDbFilledQuad& aplat, dessinBloc& dessin)
{
    dessinBloc::trace trace;
    AcGePoint3d coin;
    constexpr Adesk::UInt16 autour[] = {0, 1, 3, 2}; // the corners run in a Z
    for (const Adesk::UInt16 rang : autour)
        if (aplat.getPointAt(rang, coin) == Acad::eOk)
            trace.emplace_back(coin.x, coin.y);
    dessin.aplats.push_back(std::move(trace));
}

void ajouter(const AcDbEntity& entite, dessinBloc& dessin, int profondeur)
{
    if (dessin.lignes.size() + dessin.aplats.size() > plusDeTraces)
        return;
    if (const auto* const courbe = AcDbCurve::cast(&entite))
        return ajouterCourbe(*courbe, dessin);
    if (const auto* const aplat = AcDbSolid::cast(&entite))
        return ajouterAplat(*aplat, dessin);
    const auto* const reference = AcDbBlockReference::cast(&entite);
    AcDbVoidPtrArray parties;
    if (!reference || profondeur == plusProfond || reference->explode(parties) != Acad::eOk)
        return;
    for (void* const partie : parties)
        ajouter(*std::unique_ptr<AcDbEntity>(static_cast<AcDbEntity*>(partie)), dessin, profondeur + 1);
}

} // namespace

dessinBloc lireDessinBloc(const std::wstring& fichier)
{
    dessinBloc dessin;
    AcDbDatabase lu(false, true);
    if (lu.dxfIn(fichier.c_str()) != Acad::eOk)
        return dessin;
    pourChaqueEntite(lu, [&](const AcDbEntity& entite) { ajouter(entite, dessin, 0); });
    return dessin.lignes.size() + dessin.aplats.size() > plusDeTraces ? dessinBloc() : dessin;
}
