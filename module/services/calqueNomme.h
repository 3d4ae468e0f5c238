#pragma once

#include "dbid.h"
#include "dbmain.h"

/// The layer of that name in a drawing, made with that colour (1 to 255) when there is none; null when there is no
/// drawing, or it refuses the name.
AcDbObjectId calqueNomme(AcDbDatabase* dessin, const wchar_t* nom, Adesk::UInt16 couleur);
