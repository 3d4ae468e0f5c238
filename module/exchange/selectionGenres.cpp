#include "exchange/selectionGenres.h"

#include <array>
#include <set>
#include <string>

#include "codification/attributsBloc.h"
#include "exchange/importDessin.h"
#include "services/selection.h"

#include "dbents.h"

namespace {

struct filtreGenre {
    int genres;
    const wchar_t* classe;
};
constexpr std::array<filtreGenre, 11> filtres{{{genrePolyligne3d, L"AcDb3dPolyline"},
                                               {genreAnciennePolyligne, L"AcDb2dPolyline"},
                                               {genrePoint, L"AcDbPoint"},
                                               {genreMaillage, L"AcDbPolygonMesh"},
                                               {genreFacette, L"AcDbFace"},
                                               {genreLigne, L"AcDbLine"},
                                               {genrePolyface, L"AcDbPolyFaceMesh"},
                                               {genrePolyligne, L"AcDbPolyline"},
                                               {genreBloc | genreSymbole | genreBlocAttributs, L"AcDbBlockReference"},
                                               {genreTexte, L"AcDbText"},
                                               {genreTexte, L"AcDbMText"}}};

constexpr short codeOperateur = -4, codeClasse = 100;

} // namespace

std::vector<AcDbObjectId> selectionnerGenres(int genres)
{
    std::vector<std::pair<short, const wchar_t*>> items;
    for (const filtreGenre& f : filtres)
        if ((genres & f.genres) != 0)
            items.emplace_back(codeClasse, f.classe);
    if (items.empty())
        return {};
    items.insert(items.begin(), {codeOperateur, L"<OR"});
    items.emplace_back(codeOperateur, L"OR>");
    return demanderSelection(L"\nSelectionnez :", items);
}

std::vector<std::wstring> etiquettesDuDessin()
{
    std::set<std::wstring> trouvees;
    for (const AcDbObjectId& id : selectionDuDessin(L"INSERT")) {
        const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
        if (reference.openStatus() == Acad::eOk)
            pourChaqueAttribut(*reference.object(), AcDb::kForRead,
                               [&](AcDbAttribute& attribut) { trouvees.insert(attribut.tagConst()); });
    }
    return {trouvees.begin(), trouvees.end()};
}
