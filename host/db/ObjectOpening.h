#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "dbmain.h"

/// Opening and closing of objects: the counts, the refusals, and the notifications when a change is closed.
class ObjectOpening {
public:
    static Acad::ErrorStatus open(AcDbObject& object, AcDb::OpenMode mode);
    static Acad::ErrorStatus close(AcDbObject& object);
    static Acad::ErrorStatus upgrade(AcDbObject& object);
    static Acad::ErrorStatus downgrade(AcDbObject& object);

    /// An object that joined a database is open for write.
    static void joined(AcDbObject& object);
    /// An object that is about to go.
    static void forget(AcDbObject& object);
    static bool isOpen(const AcDbObject& object);

    // Reactors of the object, of its database, and objects that persistently react to it.
    static void tellOpenedForModify(AcDbObject& object);
    static void tellAppended(AcDbObject& object);
    static void tellErased(AcDbObject& object, bool erased);
    /// After U or REDO changed the object.
    static void tellUndone(AcDbObject& object);
    /// After U took the making of the object back (`undone`), or REDO made it again.
    static void tellAppendUndone(AcDbObject& object, bool undone);

    /// Objects of databases that are open now, counted once for each opening.
    static std::size_t openCount();
    /// One name for each opened object: "AcDbLine (2F)". At most a few.
    static std::vector<std::wstring> openNames();
    /// Closes them all: the end of a command that left some open.
    static void closeAll();

private:
    class Telling;
    static void tellModified(AcDbObject& object);
    static void endWriting(AcDbObject& object);
    static void enlist(AcDbObject& object);
    static void strike(AcDbObject& object);
};

/// Calls `tell` for each reactor of a list. Reactors may take themselves or others away meanwhile: a copy is walked,
/// and one that left the list is not told.
template <class Reactor, class Tell>
void tellEach(const std::vector<Reactor*>& reactors, Tell tell)
{
    if (reactors.empty())
        return;
    for (Reactor* reactor : std::vector(reactors))
        if (std::ranges::find(reactors, reactor) != reactors.end())
            tell(*reactor);
}
