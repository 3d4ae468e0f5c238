#include "db/entities/KindNames.h"

#include <algorithm>
#include <array>

#include "dbmain.h"

namespace {

struct KindRow {
    std::wstring_view className;
    const wchar_t* name;
};
constexpr std::array kindNames{
    KindRow{L"AcDbPoint", L"Point"},
    KindRow{L"AcDbLine", L"Ligne"},
    KindRow{L"AcDbCircle", L"Cercle"},
    KindRow{L"AcDbArc", L"Arc"},
    KindRow{L"AcDbEllipse", L"Ellipse"},
    KindRow{L"AcDbPolyline", L"Polyligne"},
    KindRow{L"AcDb2dPolyline", L"Polyligne 2D"},
    KindRow{L"AcDb3dPolyline", L"Polyligne 3D"},
    KindRow{L"AcDbSpline", L"Spline"},
    KindRow{L"AcDbText", L"Texte"},
    KindRow{L"AcDbMText", L"Texte multiligne"},
    KindRow{L"AcDbBlockReference", L"Référence de bloc"},
    KindRow{L"AcDbMInsertBlock", L"Réseau de blocs"},
    KindRow{L"AcDbAttributeDefinition", L"Définition d'attribut"},
    KindRow{L"AcDbFace", L"Face 3D"},
    KindRow{L"AcDbSolid", L"Solide"},
    KindRow{L"AcDbTrace", L"Trace"},
    KindRow{L"AcDbPolygonMesh", L"Maillage"},
    KindRow{L"AcDbPolyFaceMesh", L"Maillage à faces"},
    KindRow{L"AcDbHatch", L"Hachures"},
};

} // namespace

std::wstring kindName(const AcDbEntity& entity)
{
    const std::wstring className = entity.isA()->name();
    const auto* const row = std::ranges::find(kindNames, className, &KindRow::className);
    if (row != kindNames.end())
        return row->name;
    return className.find(L"Dimension") != std::wstring::npos ? L"Cote" : className;
}
