#pragma once

#include <string>

class AcDbDatabase;
class projetsTopo;

/// Tells on the error output what opening found wrong in the drawing.
void avertirDesProblemes(const AcDbDatabase& dessin);

/// Drawings are written as DXF. @throws erreurProgramme for a name that does not end in ".dxf" (in any letter case).
void exigerExtensionDxf(const std::string& chemin);

/// Tells where the file that was there before is kept; an empty name tells nothing.
void direAncienDessin(const std::string& ancien);

/// "12 points placés dans la table « LEVE »".
std::string phrasePointsPlaces(int nombre, const std::string& table);

/// The point tables of the current drawing. @throws erreurProgramme when no module made any.
projetsTopo& projetDuDessin();

/// Version as users know it: "R12", "2010"; the number alone when there is no such name.
std::string nomVersion(int version);
