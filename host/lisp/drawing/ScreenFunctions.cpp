// What is shown: grdraw, grtext, redraw..., and coordinates: trans, osnap.

#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/LispConversion.h"
#include "lisp/drawing/ScreenValues.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"

#include "aced.h"

LispValue pointValue(const ads_point point)
{
    const LispValue numbers[] = {LispValue(point[0]), LispValue(point[1]), LispValue(point[2])};
    return listOf(numbers);
}

LispValue entityValue(const ads_name name)
{
    return LispValue(LispName{LispName::Kind::entity, {name[0], name[1]}});
}

LispValue ownedSelection(const ads_name name)
{
    const auto release = [](const LispName* owned) {
        acedSSFree(owned->words.data());
        delete owned;
    };
    return LispValue(
        std::shared_ptr<const LispName>(new LispName{LispName::Kind::selection, {name[0], name[1]}}, release));
}

void setPoint(const LispValue& value, ads_point point)
{
    const AcGePoint3d given = lisp_argument::point(value);
    point[0] = given.x;
    point[1] = given.y;
    point[2] = given.z;
}

namespace {

using lisp_argument::integer;

bool isGiven(LispArguments arguments, std::size_t which)
{
    return arguments.size() > which && !arguments[which].isNil();
}

LispValue drawVector(LispContext&, LispArguments arguments)
{
    ads_point from, to;
    setPoint(arguments[0], from);
    setPoint(arguments[1], to);
    acedGrDraw(from, to, integer(arguments[2]), isGiven(arguments, 3) ? integer(arguments[3]) : 0);
    return {};
}

/// Colours and points, as acedGrVecs takes them.
ResbufChain vectorChain(const LispValue& list)
{
    ResbufBuilder chain;
    for (const LispValue& item : lisp_argument::items(list))
        if (item.isInteger())
            chain.add(RTSHORT).resval.rint = static_cast<short>(item.integer());
        else
            setPoint(item, chain.add(RT3DPOINT).resval.rpoint);
    return chain.take();
}

LispValue drawVectors(LispContext&, LispArguments arguments)
{
    ads_matrix matrix = {};
    const bool hasMatrix = isGiven(arguments, 1);
    if (hasMatrix) {
        const auto rows = lisp_argument::items(arguments[1]);
        for (std::size_t row = 0; row < rows.size() && row < 4; ++row) {
            const auto numbers = lisp_argument::items(rows[row]);
            for (std::size_t column = 0; column < numbers.size() && column < 4; ++column)
                matrix[row][column] = lisp_argument::number(numbers[column]);
        }
    }
    acedGrVecs(vectorChain(arguments[0]).get(), hasMatrix ? matrix : nullptr);
    return {};
}

LispValue showText(LispContext&, LispArguments arguments)
{
    if (arguments.size() < 2) {
        acedGrText(-1, nullptr, 0);
        acedGrText(-2, nullptr, 0);
        return {};
    }
    acedGrText(integer(arguments[0]), lisp_argument::text(arguments[1]).c_str(),
               isGiven(arguments, 2) ? integer(arguments[2]) : 0);
    return arguments[1];
}

/// (type value)
LispValue readEvent(LispContext& context, LispArguments arguments)
{
    const bool tracks = isGiven(arguments, 0) || (arguments.size() > 1 && (integer(arguments[1]) & 1) != 0);
    int type = 0;
    const ResbufChain value(acutNewRb(RTNIL));
    if (acedGrRead(tracks ? 1 : 0, &type, value.get()) != RTNORM)
        throw LispError(lisp_texts::interrupted);
    const LispValue event[] = {LispValue(std::int32_t{type}), valueOfBuffer(context, *value)};
    return listOf(event);
}

LispValue redraw(LispContext&, LispArguments arguments)
{
    if (!isGiven(arguments, 0)) {
        acedRedraw(nullptr, 1);
        return {};
    }
    const LispName* const name = arguments[0].name();
    if (!name || name->kind != LispName::Kind::entity)
        lisp_argument::refuse(L"lentityp:", arguments[0]);
    acedRedraw(name->words.data(), isGiven(arguments, 1) ? integer(arguments[1]) : 1);
    return {};
}

/// A coordinate system: a number, an entity, a normal.
ResbufChain systemChain(LispContext& context, const LispValue& value)
{
    if (value.isPair()) {
        ResbufChain normal(acutNewRb(RT3DPOINT));
        setPoint(value, normal->resval.rpoint);
        return normal;
    }
    if (value.isInteger()) {
        ResbufChain code(acutNewRb(RTSHORT));
        code->resval.rint = static_cast<short>(value.integer());
        return code;
    }
    return chainOf(context, {&value, 1});
}

LispValue transform(LispContext& context, LispArguments arguments)
{
    ads_point point, turned;
    setPoint(arguments[0], point);
    const ResbufChain from = systemChain(context, arguments[1]), to = systemChain(context, arguments[2]);
    if (acedTrans(point, from.get(), to.get(), isGiven(arguments, 3) ? 1 : 0, turned) != RTNORM)
        return {};
    return pointValue(turned);
}

LispValue snap(LispContext&, LispArguments arguments)
{
    ads_point point, snapped;
    setPoint(arguments[0], point);
    if (acedOsnap(point, lisp_argument::text(arguments[1]).c_str(), snapped) != RTNORM)
        return {};
    return pointValue(snapped);
}

LispValue nothing(LispContext&, LispArguments)
{
    return {};
}

constexpr LispBuiltin kRows[] = {
    {L"GRAPHSCR", 0, 0, nothing},    {L"GRDRAW", 3, 4, drawVector},  {L"GRREAD", 0, 3, readEvent},
    {L"GRTEXT", 0, 3, showText},     {L"GRVECS", 1, 2, drawVectors}, {L"OSNAP", 2, 2, snap},
    {L"REDRAW", 0, 2, redraw},       {L"TEXTSCR", 0, 0, nothing},    {L"TRANS", 3, 4, transform},
    {L"VL-LOAD-COM", 0, 0, nothing},
};

} // namespace

std::span<const LispBuiltin> screenBuiltins()
{
    return kRows;
}
