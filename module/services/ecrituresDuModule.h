#pragma once

class AcDbEntity;

/// Marks by which the module knows again what it wrote in a drawing: applications of extended data.

inline constexpr const wchar_t* applicationCarroyage = L"VELA_CARROYAGE";
inline constexpr const wchar_t* applicationTable = L"VELA_TABLEXYZ";
inline constexpr const wchar_t* applicationImplantation = L"VELA_IMPLANTATION";

/// Whether a text is a figure of a grid, of a table of coordinates or of a stake-out: a number, but not the altitude of
/// the place where it is written. Labels of grids that bear no mark are known by what they say: their own X or Y.
bool ditDesCoordonnees(const AcDbEntity& texte);
