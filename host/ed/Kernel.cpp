#include "ed/Kernel.h"

#include "db/DatabaseImpl.h"
#include "db/Opening.h"
#include "ed/CommandRunner.h"

Kernel::Kernel()
{
    setUndoMarks(this);
    SystemVariables::instance().setDrawingVariables(&m_header);
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
