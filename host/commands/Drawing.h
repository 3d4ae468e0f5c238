#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "dbmain.h"

/// The drawing that commands work on: that of the current document.

AcDbDatabase& drawing();

/// The entity joins the current space with the current layer, colour and linetype.
AcDbObjectId addToDrawing(std::unique_ptr<AcDbEntity> entity);
/// The same with the properties that it has.
AcDbObjectId addAsItIs(std::unique_ptr<AcDbEntity> entity, AcDbObjectId block);

/// Opens an entity for write, changes it, closes it. Locked layers are no matter here: those who ask for entities leave
/// theirs out, and what a command made itself may stand on one.
template <class Entity>
Acad::ErrorStatus change(AcDbObjectId id, const std::function<Acad::ErrorStatus(Entity&)>& what)
{
    AcDbObjectPointer<Entity> entity(id, AcDb::kForWrite, false, true);
    return entity.openStatus() == Acad::eOk ? what(*entity.object()) : entity.openStatus();
}

Acad::ErrorStatus eraseObject(AcDbObjectId id);

/// Asks for entities; those on locked layers are told of and left out. Throws CommandCancelled when nothing is
/// chosen, CommandFailed when all of it is on such layers.
std::vector<AcDbObjectId> askEditable();
/// Asks for entities that are only looked at.
std::vector<AcDbObjectId> askObjects();

/// Tells how many of the objects a command could do nothing with. @throws CommandFailed when that is all of them.
void tellRefused(std::size_t refused, std::size_t all, const wchar_t* one, const wchar_t* several);

/// Name of a record of a symbol table.
std::wstring recordName(AcDbObjectId record);
