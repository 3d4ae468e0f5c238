#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/DrawingWalks.h"
#include "lisp/drawing/RecordList.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"

#include "dbents.h"

namespace {

LispValue get(LispContext& context, LispArguments arguments)
{
    std::vector<std::wstring> applications;
    if (arguments.size() > 1)
        for (const LispValue& application : lisp_argument::items(arguments[1]))
            applications.push_back(lisp_argument::text(application));
    const AcDbObjectId id = objectArgument(arguments[0]);
    return id.isNull() ? LispValue() : recordList(context, id, applications);
}

/// The first entity of the current space, or the one behind another.
LispValue next(LispContext&, LispArguments arguments)
{
    if (arguments.empty())
        return objectName(EntityWalk::first(currentDatabase().currentSpaceId()));
    const LispName* const name = arguments[0].name();
    AcDbObjectId id = objectArgument(arguments[0]);
    if (id.isNull()) // erased meanwhile: a loop that erases goes on all the same
        id.setFromOldId(name->words[0]);
    return objectName(DrawingWalks::ofCurrentDocument().entities.after(id));
}

LispValue last(LispContext&, LispArguments)
{
    return objectName(EntityWalk::last(currentDatabase().currentSpaceId()));
}

/// Erases, or brings back what was erased.
LispValue erase(LispContext&, LispArguments arguments)
{
    const bool erasing = !objectArgument(arguments[0]).isNull();
    AcDbObjectId id;
    id.setFromOldId(arguments[0].name()->words[0]);
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite, true);
    if (entity.openStatus() != Acad::eOk || entity.object()->erase(erasing) != Acad::eOk)
        return {};
    return arguments[0];
}

LispValue ofHandle(LispContext&, LispArguments arguments)
{
    AcDbObjectId id;
    const AcDbHandle handle(lisp_argument::text(arguments[0]).c_str());
    if (currentDatabase().getAcDbObjectId(id, false, handle) != Acad::eOk || id.isErased())
        return {};
    return objectName(id);
}

constexpr LispBuiltin kRows[] = {
    {L"ENTDEL", 1, 1, erase}, {L"ENTGET", 1, 2, get},       {L"ENTLAST", 0, 0, last},
    {L"ENTNEXT", 0, 1, next}, {L"HANDENT", 1, 1, ofHandle},
};

} // namespace

std::span<const LispBuiltin> entityBuiltins()
{
    return kRows;
}
