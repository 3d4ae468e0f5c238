#pragma once

#include <optional>
#include <unordered_map>

#include "implantation/donneesStation.h"

#include "dbid.h"

class pointDuDessin;

/// Points of all the point tables of the drawing; the current table counts before the others.

lieuNomme lieuDe(const pointDuDessin& point);
/// By name, as tables look names up.
std::optional<lieuNomme> pointNomme(const std::wstring& nom);
/// The nearest one in the plane.
std::optional<lieuNomme> pointLePlusProche(point2 place);
/// The point that a symbol shows.
std::optional<lieuNomme> pointDuBloc(const AcDbObjectId& bloc);
/// The same for many symbols, whose look-up costs no walk of the tables.
class pointsParBloc {
public:
    pointsParBloc();
    std::optional<lieuNomme> operator()(const AcDbObjectId& bloc) const;

private:
    std::unordered_map<std::int64_t, const pointDuDessin*> m_points;
};
