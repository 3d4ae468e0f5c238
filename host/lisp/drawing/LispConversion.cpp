#include "lisp/drawing/LispConversion.h"

#include <limits>

#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispNumber.h"
#include "rx/ResbufKind.h"

namespace {

LispName nameOf(LispName::Kind kind, const resbuf& buffer)
{
    return {kind, {buffer.resval.rlname[0], buffer.resval.rlname[1]}};
}

LispValue pointOf(const resbuf& buffer)
{
    const LispValue coordinates[] = {LispValue(buffer.resval.rpoint[0]), LispValue(buffer.resval.rpoint[1]),
                                     LispValue(buffer.resval.rpoint[2])};
    return listOf(std::span(coordinates).first(buffer.restype == RTPOINT ? 2 : 3));
}

/// Two hexadecimal digits a byte, as blocks of bytes are shown.
std::wstring hexadecimal(const ads_binary& block)
{
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (short i = 0; i < block.clen; ++i) {
        const auto byte = static_cast<unsigned char>(block.buf[i]);
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

/// A list that was begun, with what follows its dot.
struct OpenList {
    std::vector<LispValue> items;
    bool dotted = false;
    LispValue tail;

    void take(LispValue value)
    {
        if (dotted)
            tail = std::move(value);
        else
            items.push_back(std::move(value));
    }
};

} // namespace

void LispChain::add(const LispValue& value)
{
    m_context.checkStack();
    if (!value.isPair())
        return addAtom(value);
    addBuffer(RTLB);
    const LispValue* rest = &value;
    for (; rest->isPair(); rest = &rest->cdr())
        add(rest->car());
    if (!rest->isNil()) {
        addBuffer(RTDOTE);
        addAtom(*rest);
    }
    addBuffer(RTLE);
}

void LispChain::addAtom(const LispValue& value)
{
    if (value.isNil()) {
        addBuffer(RTNIL);
    } else if (value.isInteger()) {
        const std::int32_t number = value.integer();
        if (static_cast<short>(number) == number)
            addBuffer(RTSHORT).resval.rint = static_cast<short>(number);
        else
            addBuffer(RTLONG).resval.rlong = number;
    } else if (value.isReal()) {
        addBuffer(RTREAL).resval.rreal = value.real();
    } else if (value.isText()) {
        acutNewString(value.text().c_str(), addBuffer(RTSTR).resval.rstring);
    } else if (const LispName* name = value.name()) {
        resbuf& buffer = addBuffer(name->kind == LispName::Kind::entity ? RTENAME : RTPICKS);
        buffer.resval.rlname[0] = name->words[0];
        buffer.resval.rlname[1] = name->words[1];
    } else if (value.isSame(m_context.truth(true))) {
        addBuffer(RTT);
    } else {
        lisp_argument::refuse(L"nombre, texte, liste, point ou nom:", value);
    }
}

resbuf& LispChain::addBuffer(int type)
{
    resbuf* const buffer = acutNewRb(type);
    if (m_last)
        m_last->rbnext = buffer;
    else
        m_head.reset(buffer);
    return *(m_last = buffer);
}

ResbufChain chainOf(LispContext& context, LispArguments arguments)
{
    LispChain chain(context);
    for (const LispValue& argument : arguments)
        chain.add(argument);
    return chain.take();
}

LispValue valueOfBuffer(LispContext& context, const resbuf& buffer)
{
    switch (resbufKind(buffer.restype)) {
    case ResbufKind::real:
        return LispValue(buffer.resval.rreal);
    case ResbufKind::point:
        return pointOf(buffer);
    case ResbufKind::int16:
        return LispValue(std::int32_t{buffer.resval.rint});
    case ResbufKind::int32:
        return LispValue(std::int32_t{buffer.resval.rlong});
    case ResbufKind::int64:
        return lispInteger(buffer.resval.mnInt64);
    case ResbufKind::text:
        return LispValue(buffer.resval.rstring ? buffer.resval.rstring : L"");
    case ResbufKind::name:
        return LispValue(
            nameOf(buffer.restype == RTPICKS ? LispName::Kind::selection : LispName::Kind::entity, buffer));
    case ResbufKind::bytes:
        return LispValue(hexadecimal(buffer.resval.rbinary));
    case ResbufKind::none:
    case ResbufKind::unknown:
        break;
    }
    if (buffer.restype == RTT)
        return context.truth(true);
    return buffer.restype == RTVOID ? LispValue(context.symbol(L"")) : LispValue();
}

LispValue valueOfChain(LispContext& context, const resbuf* chain)
{
    std::vector<OpenList> open;
    for (; chain; chain = chain->rbnext) {
        LispValue value;
        if (chain->restype == RTLB) {
            open.emplace_back();
            continue;
        }
        if (chain->restype == RTDOTE && !open.empty()) {
            open.back().dotted = true;
            continue;
        }
        if (chain->restype == RTLE && !open.empty()) {
            value = listOf(open.back().items, open.back().tail);
            open.pop_back();
        } else {
            value = valueOfBuffer(context, *chain);
        }
        if (open.empty())
            return value;
        open.back().take(std::move(value));
    }
    LispValue value; // lists that were left open end here
    for (; !open.empty(); open.pop_back()) {
        if (!value.isNil())
            open.back().take(std::move(value));
        value = listOf(open.back().items, open.back().tail);
    }
    return value;
}
