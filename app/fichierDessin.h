#pragma once

#include <string>

class AcDbDatabase;

/// Tells on the error output what opening found wrong in the drawing.
void avertirDesProblemes(const AcDbDatabase& dessin);

/// Drawings are written as DXF. @throws erreurProgramme for a name that does not end in ".dxf" (in any letter case).
void exigerExtensionDxf(const std::string& chemin);

/// Where saving keeps the file that was there before.
std::string nomAncienDessin(const std::string& chemin);

/// Version as users know it: "R12", "2010"; the number alone when there is no such name.
std::string nomVersion(int version);
