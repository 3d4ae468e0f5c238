#include "codification/blocsDuDessin.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "codification/descriptionBloc.h"
#include "codification/parcoursBloc.h"
#include "services/definitionsDessin.h"
#include "services/lettres.h"

#include "dbapserv.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace {

AcDbDatabase* dessin()
{
    return acdbHostApplicationServices()->workingDatabase();
}

template <typename Pour>
void dansEspaceObjet(Pour&& pour)
{
    if (dessin())
        pourChaqueEntite(*dessin(), pour);
}

std::map<AcDbObjectId, int> occurrencesParBloc()
{
    std::map<AcDbObjectId, int> occurrences;
    dansEspaceObjet([&](const AcDbEntity& entite) {
        if (const auto* const reference = AcDbBlockReference::cast(&entite))
            ++occurrences[reference->blockTableRecord()];
    });
    return occurrences;
}

std::vector<AcDbObjectId> idsDesBlocs()
{
    std::vector<AcDbObjectId> ids;
    AcDbBlockTable* blocs = nullptr;
    if (!dessin() || dessin()->getBlockTable(blocs, AcDb::kForRead) != Acad::eOk)
        return ids;
    AcDbSymbolTableIterator* enregistrements = nullptr;
    if (blocs->newIterator(enregistrements) == Acad::eOk) {
        const std::unique_ptr<AcDbSymbolTableIterator> it(enregistrements);
        for (AcDbObjectId id; !it->done(); it->step())
            if (it->getRecordId(id) == Acad::eOk)
                ids.push_back(id);
    }
    blocs->close();
    return ids;
}

} // namespace

bool etendueBloc(const AcDbBlockTableRecord& bloc, AcDbExtents& etendue)
{
    pourChaqueEntite(bloc, [&](const AcDbEntity& entite) {
        AcDbExtents sienne;
        if (!AcDbAttributeDefinition::cast(&entite) && entite.getGeomExtents(sienne) == Acad::eOk)
            etendue.addExt(sienne);
    });
    return !etendue.isEmpty();
}

blocDuDessin blocDe(const AcDbObjectId& id)
{
    blocDuDessin bloc;
    bloc.id = id;
    bloc.nom = nomDefinition(id);
    bloc.description = lireDescriptions(id).bloc;
    const AcDbObjectPointer<AcDbBlockTableRecord> definition(id);
    if (definition.openStatus() == Acad::eOk) {
        etendueBloc(*definition.object(), bloc.etendue);
        bloc.pointDeBase = definition->origin();
    }
    return bloc;
}

std::vector<blocDuDessin> blocsDuDessin()
{
    auto occurrences = occurrencesParBloc();
    std::vector<blocDuDessin> blocs;
    for (const AcDbObjectId& id : idsDesBlocs()) {
        if (nomDefinition(id).starts_with(L'*'))
            continue;
        blocs.push_back(blocDe(id));
        blocs.back().occurrences = occurrences[id];
    }
    std::sort(blocs.begin(), blocs.end(),
              [](const blocDuDessin& a, const blocDuDessin& b) { return enMinuscules(a.nom) < enMinuscules(b.nom); });
    return blocs;
}

std::vector<AcDbObjectId> calquesUtilises()
{
    std::set<AcDbObjectId> rencontres;
    dansEspaceObjet([&](const AcDbEntity& entite) { rencontres.insert(entite.layerId()); });
    std::vector<std::pair<std::wstring, AcDbObjectId>> nommes;
    for (const AcDbObjectId& calque : rencontres)
        nommes.emplace_back(enMinuscules(nomDefinition(calque)), calque);
    std::sort(nommes.begin(), nommes.end());
    std::vector<AcDbObjectId> calques;
    for (const auto& nomme : nommes)
        calques.push_back(nomme.second);
    return calques;
}
