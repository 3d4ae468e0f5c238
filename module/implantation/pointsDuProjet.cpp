#include "implantation/pointsDuProjet.h"

#include "points/projetDansDessin.h"
#include "services/codages.h"

namespace {

/// Calls `pour(table)` until it answers true.
template <typename Pour>
bool surTables(Pour&& pour)
{
    const listePointsDuDessin* const courante = tableCourante();
    if (!courante)
        return false;
    if (pour(*courante))
        return true;
    for (int i = 0; i < tablesPoints->nbTables(); ++i)
        if (const listePointsDuDessin* const table = tablesPoints->getTable(i); table != courante && pour(*table))
            return true;
    return false;
}

} // namespace

lieuNomme lieuDe(const pointDuDessin& point)
{
    return {depuisAnsi(point.getNomPoint()), point.getX(), point.getY(), point.getZ()};
}

std::optional<lieuNomme> pointNomme(const std::wstring& nom)
{
    std::optional<lieuNomme> trouve;
    surTables([&](const listePointsDuDessin& table) {
        int position = -1;
        if (!table.existPoint(nom.c_str(), position))
            return false;
        trouve = lieuDe(*table.getData(position));
        return true;
    });
    return trouve;
}

std::optional<lieuNomme> pointLePlusProche(point2 place)
{
    std::optional<lieuNomme> trouve;
    surTables([&](const listePointsDuDessin& table) {
        pointDuDessin proche;
        if (!table.findNearestTo(place.x, place.y, proche))
            return false;
        const lieuNomme lieu = lieuDe(proche);
        if (!trouve || carreDistance(lieu.plan(), place) < carreDistance(trouve->plan(), place))
            trouve = lieu;
        return false;
    });
    return trouve;
}

std::optional<lieuNomme> pointDuBloc(const AcDbObjectId& bloc)
{
    std::optional<lieuNomme> trouve;
    surTables([&](const listePointsDuDessin& table) {
        for (int i = 0; i < table.nbPoint() && !trouve; ++i)
            if (table.getData(i)->getId() == bloc)
                trouve = lieuDe(*table.getData(i));
        return trouve.has_value();
    });
    return bloc.isNull() ? std::nullopt : trouve;
}

pointsParBloc::pointsParBloc()
{
    surTables([this](const listePointsDuDessin& table) {
        for (int i = 0; i < table.nbPoint(); ++i)
            if (const pointDuDessin& point = *table.getData(i); !point.getId().isNull())
                m_points.emplace(point.getId().asOldId(), &point);
        return false;
    });
}

std::optional<lieuNomme> pointsParBloc::operator()(const AcDbObjectId& bloc) const
{
    const auto trouve = m_points.find(bloc.asOldId());
    return trouve == m_points.end() ? std::nullopt : std::optional(lieuDe(*trouve->second));
}
