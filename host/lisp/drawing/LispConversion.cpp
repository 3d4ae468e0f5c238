#include "lisp/drawing/LispConversion.h"

#include <limits>

#include "lisp/drawing/RecordList.h"
#include "lisp/drawing/ScreenValues.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispNumber.h"
#include "rx/ResbufValue.h"

namespace {

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

/// The value of a buffer of that type.
struct ValueOfBuffer {
    LispContext& context;
    int type;

    LispValue operator()(double value) const { return LispValue(value); }
    LispValue operator()(std::int64_t value) const { return lispInteger(value); }
    LispValue operator()(std::wstring_view value) const { return LispValue(std::wstring(value)); }
    LispValue operator()(std::span<const ads_real> point) const
    {
        return listOf(std::vector<LispValue>(point.begin(), point.end()));
    }
    LispValue operator()(ResbufName name) const
    {
        const auto kind = type == RTPICKS ? LispName::Kind::selection : LispName::Kind::entity;
        return LispValue(LispName{kind, {name.words[0], name.words[1]}});
    }
    LispValue operator()(const ads_binary& block) const { return LispValue(hexadecimal(block)); }
    LispValue operator()(std::monostate) const
    {
        if (type == RTT)
            return context.truth(true);
        return type == RTVOID ? LispValue(context.symbol(L"")) : LispValue();
    }
};

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
    m_chain.add(RTLB);
    const LispValue* rest = &value;
    for (; rest->isPair(); rest = &rest->cdr())
        add(rest->car());
    if (!rest->isNil()) {
        m_chain.add(RTDOTE);
        addAtom(*rest);
    }
    m_chain.add(RTLE);
}

void LispChain::addAtom(const LispValue& value)
{
    if (value.isNil()) {
        m_chain.add(RTNIL);
    } else if (value.isInteger()) {
        const std::int32_t number = value.integer();
        if (static_cast<short>(number) == number)
            m_chain.add(RTSHORT).resval.rint = static_cast<short>(number);
        else
            m_chain.add(RTLONG).resval.rlong = number;
    } else if (value.isReal()) {
        m_chain.add(RTREAL).resval.rreal = value.real();
    } else if (value.isText()) {
        m_chain.addText(RTSTR, value.text().c_str());
    } else if (const LispName* name = value.name()) {
        m_chain.addName(name->kind == LispName::Kind::entity ? RTENAME : RTPICKS, name->words.data());
    } else if (value.isSame(m_context.truth(true))) {
        m_chain.add(RTT);
    } else {
        lisp_argument::refuse(L"nombre, texte, liste, point ou nom:", value);
    }
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
    return visitValue(buffer, ValueOfBuffer{context, buffer.restype});
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

bool setBuffer(resbuf& buffer, const LispValue& value)
{
    ads_u_val& to = buffer.resval;
    switch (resbufKind(buffer.restype)) {
    case ResbufKind::real:
        to.rreal = lisp_argument::number(value);
        return true;
    case ResbufKind::point:
        setPoint(value, to.rpoint);
        return true;
    case ResbufKind::int16:
        to.rint = static_cast<short>(lisp_argument::integer(value));
        return true;
    case ResbufKind::int32:
        to.rlong = lisp_argument::integer(value);
        return true;
    case ResbufKind::int64:
        to.mnInt64 = lisp_argument::integer(value);
        return true;
    case ResbufKind::name:
        to.rlname[0] = objectArgument(value).asOldId();
        return true;
    case ResbufKind::text:
        acutNewString(lisp_argument::text(value).c_str(), to.rstring);
        return true;
    case ResbufKind::bytes:
    case ResbufKind::none:
    case ResbufKind::unknown:
        break;
    }
    return false;
}
