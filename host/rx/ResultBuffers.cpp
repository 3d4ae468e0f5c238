#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "rx/ResbufChain.h"
#include "rx/ResbufKind.h"
#include "rx/ResbufPool.h"

namespace {

constexpr const ACHAR* textOrEmpty(const ACHAR* text)
{
    return text ? text : L"";
}

ads_binary copyOf(const ads_binary& block)
{
    const short length = block.buf ? std::max<short>(block.clen, 0) : short{0};
    ads_binary copy{length, nullptr};
    acutNewBuffer(copy.buf, static_cast<std::size_t>(length));
    if (length > 0)
        std::memcpy(copy.buf, block.buf, static_cast<std::size_t>(length));
    return copy;
}

void takeArgument(resbuf& item, ResbufKind kind, std::va_list& arguments)
{
    switch (kind) {
    case ResbufKind::real:
        item.resval.rreal = va_arg(arguments, double);
        break;
    case ResbufKind::point: {
        const ads_real* point = va_arg(arguments, const ads_real*);
        std::copy_n(point, item.restype == RTPOINT ? 2 : 3, item.resval.rpoint);
        break;
    }
    case ResbufKind::int16:
        item.resval.rint = static_cast<short>(va_arg(arguments, int));
        break;
    case ResbufKind::int32:
        item.resval.rlong = static_cast<Adesk::Int32>(va_arg(arguments, long));
        break;
    case ResbufKind::int64:
        item.resval.mnInt64 = va_arg(arguments, Adesk::Int64);
        break;
    case ResbufKind::text:
        acutNewString(textOrEmpty(va_arg(arguments, const ACHAR*)), item.resval.rstring);
        break;
    case ResbufKind::name:
        std::copy_n(va_arg(arguments, const std::int64_t*), 2, item.resval.rlname);
        break;
    case ResbufKind::bytes:
        item.resval.rbinary = copyOf(*va_arg(arguments, const ads_binary*));
        break;
    case ResbufKind::none:
    case ResbufKind::unknown:
        break;
    }
}

} // namespace

resbuf* acutNewRb(int type)
{
    return ResbufPool::instance().take(static_cast<short>(type));
}

int acutRelRb(resbuf* chain)
{
    if (!chain)
        return RTERROR;
    std::size_t count = 0;
    resbuf* last = nullptr;
    for (resbuf* item = chain; item; item = item->rbnext) {
        const ResbufKind kind = resbufKind(item->restype);
        if (kind == ResbufKind::text)
            acutDelString(item->resval.rstring);
        else if (kind == ResbufKind::bytes)
            acutDelBuffer(item->resval.rbinary.buf);
        last = item;
        ++count;
    }
    ResbufPool::instance().giveBack(chain, last, count);
    return RTNORM;
}

resbuf* acutBuildList(int type, ...)
{
    std::va_list arguments;
    va_start(arguments, type);
    ResbufChain built = builtChain(type, arguments);
    va_end(arguments);
    return built.release();
}

ResbufChain builtChain(int type, std::va_list& arguments)
{
    ResbufBuilder chain;
    for (; type != 0 && type != RTNONE; type = va_arg(arguments, int)) {
        const int stored = type == RTDXF0 ? 0 : type;
        const ResbufKind kind = resbufKind(stored);
        if (kind == ResbufKind::unknown)
            return nullptr;
        takeArgument(chain.add(stored), kind, arguments);
    }
    return chain.take();
}

resbuf& ResbufBuilder::add(int type)
{
    append(ResbufChain(acutNewRb(type)));
    return *m_last;
}

void ResbufBuilder::addText(int type, const ACHAR* text)
{
    acutNewString(textOrEmpty(text), add(type).resval.rstring);
}

void ResbufBuilder::addName(int type, const ads_name name)
{
    std::copy_n(name, 2, add(type).resval.rlname);
}

void ResbufBuilder::append(ResbufChain chain)
{
    resbuf* const first = chain.release();
    if (!first)
        return;
    if (m_last)
        m_last->rbnext = first;
    else
        m_head.reset(first);
    m_last = lastOf(first);
}

ResbufChain ResbufBuilder::take()
{
    m_last = nullptr;
    return std::move(m_head);
}

resbuf* lastOf(resbuf* chain)
{
    while (chain && chain->rbnext)
        chain = chain->rbnext;
    return chain;
}

const resbuf* afterValue(const resbuf* value)
{
    int depth = 0;
    for (; value; value = value->rbnext) {
        if (value->restype == RTLB)
            ++depth;
        else if (value->restype == RTLE)
            --depth;
        if (depth <= 0)
            return value->rbnext;
    }
    return nullptr;
}

ResbufChain copiedChain(const resbuf* first, const resbuf* end)
{
    ResbufBuilder chain;
    for (; first && first != end; first = first->rbnext) {
        resbuf& copy = chain.add(first->restype);
        const ResbufKind kind = resbufKind(first->restype);
        if (kind == ResbufKind::text)
            acutNewString(textOrEmpty(first->resval.rstring), copy.resval.rstring);
        else if (kind == ResbufKind::bytes)
            copy.resval.rbinary = copyOf(first->resval.rbinary);
        else
            copy.resval = first->resval;
    }
    return chain.take();
}
