#pragma once

/// The editor: commands, functions for AutoLISP, system variables, input, views.

#include "accmd.h"
#include "acedads.h"
#include "acutads.h"
#include "rxregsvc.h"

class AcDbDatabase;

/// Told of the commands that run, those inside others as well. What a reactor changes in the drawing belongs to the
/// command's step for U: it hears of the start after the step was begun, of the end before it is closed.
class AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor);
    virtual void commandWillStart(const ACHAR* /*globalName*/) {}
    /// One of the three ends it: done, cancelled by the user (which a host may count as done), or failed.
    virtual void commandEnded(const ACHAR* /*globalName*/) {}
    virtual void commandCancelled(const ACHAR* /*globalName*/) {}
    virtual void commandFailed(const ACHAR* /*globalName*/) {}
    /// The drawing, which is the current one, is about to be written to that file; modules have heard kSaveMsg. A
    /// recovery copy goes to the file that the system variable SAVEFILE names: what is changed for it is taken back
    /// after it.
    virtual void beginSave(AcDbDatabase* /*drawing*/, const ACHAR* /*intendedName*/) {}
};

class AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor);
    /// Not owned.
    virtual void addReactor(AcEditorReactor* reactor) = 0;
    virtual void removeReactor(AcEditorReactor* reactor) = 0;
};

#define ACRX_EDITOR_OBJ L"AcEditor"
#define acedEditor AcEditor::cast(acrxSysRegistry()->at(ACRX_EDITOR_OBJ))

class AcDbViewTableRecord;
class AcDbViewport;

/// Shows what the view record says: its center, height and width (the larger need decides), in the current viewport.
/// What is shown now is told by the system variables VIEWCTR, VIEWSIZE and SCREENSIZE. `viewport` must be null.
/// @return eNoDocument without a drawing; eInvalidInput for a height or a width below 1e-12.
Acad::ErrorStatus acedSetCurrentView(AcDbViewTableRecord* view, AcDbViewport* viewport);
/// Shows what changed so far, though the command goes on.
void acedUpdateDisplay();
