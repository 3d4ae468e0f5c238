#pragma once

class AcDbDatabase;
class AcDbEntity;

/// Extended data of the application "VELAPLUS".
inline constexpr const wchar_t* applicationVelaplus = L"VELAPLUS";

/// Makes sure that the drawing knows an application, without which it takes no data of it.
bool declarerApplication(AcDbDatabase& db, const wchar_t* nom);
bool declarerVelaplus(AcDbDatabase& db);

/// Gives an entity of a drawing, open for write, the mark of a point symbol: one 16-bit integer, 1.
bool marquerSymbole(AcDbEntity& entite);
