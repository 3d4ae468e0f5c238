#pragma once

/// The editor: commands, functions for AutoLISP, system variables, input, views.

#include "accmd.h"
#include "acedads.h"
#include "acutads.h"

class AcDbViewTableRecord;
class AcDbViewport;

/// Shows what the view record says: its center, height and width (the larger need decides), in the current viewport.
/// What is shown now is told by the system variables VIEWCTR, VIEWSIZE and SCREENSIZE. `viewport` must be null.
/// @return eNoDocument without a drawing; eInvalidInput for a height or a width below 1e-12.
Acad::ErrorStatus acedSetCurrentView(AcDbViewTableRecord* view, AcDbViewport* viewport);
/// Shows what changed so far, though the command goes on.
void acedUpdateDisplay();
