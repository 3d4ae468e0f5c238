#include "ed/Kernel.h"

#include "db/DatabaseImpl.h"
#include "db/ObjectOpening.h"
#include "ed/CommandRunner.h"
#include "ed/DrawingChanges.h"
#include "ed/EditorReactors.h"
#include "ed/input/PendingCommands.h"

Kernel::Kernel()
{
    setUndoMarks(this);
    PendingCommands::install();
    SystemVariables::instance().setDrawingVariables(&m_header);
    DocumentList::instance().onStored([](Document& document) { DrawingChanges::instance().setSaved(document); });
    DocumentList::instance().onSaving([](Document& document, const std::wstring& path) {
        EditorReactors::instance().tellBeginSave(*document.database(), path);
    });
    CommandRunner::instance().setOpenObjects([] {
        auto names = ObjectOpening::openNames();
        ObjectOpening::closeAll();
        return names;
    });
}

Kernel::~Kernel()
{
    SystemVariables::instance().setDrawingVariables(nullptr);
    CommandRunner::instance().setOpenObjects(nullptr);
    DocumentList::instance().onStored(nullptr);
    DocumentList::instance().onSaving(nullptr);
    setUndoMarks(nullptr);
}

void Kernel::documentOpened(AcDbDatabase& database)
{
    database.impl().undo().setRecording(true);
}
void Kernel::startMark(AcDbDatabase& database)
{
    database.impl().undo().startMark(CommandRunner::instance().runningNames());
}
void Kernel::endMark(AcDbDatabase& database)
{
    database.impl().undo().endMark();
}
