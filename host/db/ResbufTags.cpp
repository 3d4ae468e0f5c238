#include "db/ResbufTags.h"

#include <cstring>

#include "db/DatabaseImpl.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"

#include "acutmem.h"
#include "adscodes.h"

namespace {

constexpr int commentCode = 999;

/// Group codes whose reals come in threes: x under the code, y under code + 10, z under code + 20.
bool opensPoint(int code)
{
    return (code >= 10 && code <= 18) || code == 110 || code == 111 || code == 112 || code == 210 ||
           (code >= 1010 && code <= 1013);
}
bool isReference(int code)
{
    return (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}

/// Appends items at the end of a chain.
class ChainBuilder {
public:
    resbuf& add(int code)
    {
        resbuf* item = acutNewRb(code);
        *m_end = item;
        m_end = &item->rbnext;
        return *item;
    }
    resbuf* chain() const { return m_head; }

private:
    resbuf* m_head = nullptr;
    resbuf** m_end = &m_head;
};

/// Makes the items of a run of tags.
class TagsToChain {
public:
    explicit TagsToChain(const AcDbDatabaseImpl& database) : m_database(database), m_form(database.form()) {}

    resbuf* convert(std::string_view bytes)
    {
        DxfCursor cursor(m_form, bytes);
        DxfTag tag;
        while (cursor.next(tag))
            if (!continuesPoint(tag))
                take(tag);
        return m_chain.chain();
    }

private:
    // The y and z of a point follow its x; anywhere else they are plain reals.
    bool continuesPoint(const DxfTag& tag)
    {
        if (m_point && tag.code == m_pointCode + 10 * m_nextPart &&
            dxfReal(m_form, tag, m_point->resval.rpoint[m_nextPart])) {
            if (++m_nextPart == 3)
                m_point = nullptr;
            return true;
        }
        m_point = nullptr;
        return false;
    }

    void take(const DxfTag& tag)
    {
        if (tag.code == dxfBadCode || tag.code == commentCode)
            return;
        switch (dxfKind(tag.code)) {
        case DxfKind::real:
            takeReal(tag);
            break;
        case DxfKind::int16:
        case DxfKind::boolean:
        case DxfKind::int32:
        case DxfKind::int64:
            takeInteger(tag);
            break;
        case DxfKind::handle:
            takeHandle(tag);
            break;
        case DxfKind::bytes:
            takeBytes(tag);
            break;
        case DxfKind::text:
            takeText(tag);
            break;
        }
    }

    void takeReal(const DxfTag& tag)
    {
        double value = 0.0;
        if (!dxfReal(m_form, tag, value))
            return;
        resbuf& item = m_chain.add(tag.code);
        if (!opensPoint(tag.code)) {
            item.resval.rreal = value;
            return;
        }
        item.resval.rpoint[0] = value;
        item.resval.rpoint[1] = item.resval.rpoint[2] = 0.0;
        m_point = &item;
        m_pointCode = tag.code;
        m_nextPart = 1;
    }

    void takeInteger(const DxfTag& tag)
    {
        std::int64_t value = 0;
        if (!dxfInteger(m_form, tag, value))
            return;
        resbuf& item = m_chain.add(tag.code);
        switch (dxfKind(tag.code)) {
        case DxfKind::int64:
            item.resval.mnInt64 = value;
            break;
        case DxfKind::int32:
            item.resval.rlong = static_cast<Adesk::Int32>(value);
            break;
        default:
            item.resval.rint = static_cast<short>(value);
        }
    }

    void takeHandle(const DxfTag& tag)
    {
        std::uint64_t handle = 0;
        if (!isReference(tag.code)) {
            takeText(tag);
        } else if (dxfHandle(tag, handle)) {
            resbuf& item = m_chain.add(tag.code);
            item.resval.rlname[0] = AcDbObjectId(m_database.byHandle(handle)).asOldId();
            item.resval.rlname[1] = 0;
        }
    }

    void takeBytes(const DxfTag& tag)
    {
        m_buffer.clear();
        if (!dxfBytes(m_form, tag, m_buffer) || m_buffer.size() > 0x7FFF)
            return;
        resbuf& item = m_chain.add(tag.code);
        item.resval.rbinary.clen = static_cast<short>(m_buffer.size());
        acutNewBuffer(item.resval.rbinary.buf, m_buffer.size());
        if (!m_buffer.empty())
            std::memcpy(item.resval.rbinary.buf, m_buffer.data(), m_buffer.size());
    }

    void takeText(const DxfTag& tag)
    {
        m_text.clear();
        m_form.encoding->decode(dxfText(tag), m_text);
        acutNewString(m_text.c_str(), m_chain.add(tag.code).resval.rstring);
    }

    const AcDbDatabaseImpl& m_database;
    const DxfForm& m_form;
    ChainBuilder m_chain;
    resbuf* m_point = nullptr;
    int m_pointCode = 0;
    int m_nextPart = 0;
    std::string m_buffer;
    std::wstring m_text;
};

bool writeItem(const resbuf& item, DxfTagWriter& out)
{
    const int code = item.restype;
    if (code < 0 || code > dxfLastCode || code == 0)
        return false;
    switch (dxfKind(code)) {
    case DxfKind::real:
        if (opensPoint(code))
            out.point(code, item.resval.rpoint[0], item.resval.rpoint[1], item.resval.rpoint[2]);
        else
            out.real(code, item.resval.rreal);
        return true;
    case DxfKind::int64:
        out.integer(code, item.resval.mnInt64);
        return true;
    case DxfKind::int32:
        out.integer(code, item.resval.rlong);
        return true;
    case DxfKind::int16:
    case DxfKind::boolean:
        out.integer(code, item.resval.rint);
        return true;
    case DxfKind::bytes:
        if (item.resval.rbinary.clen < 0)
            return false;
        out.bytes(code, {item.resval.rbinary.buf, static_cast<std::size_t>(item.resval.rbinary.clen)});
        return true;
    case DxfKind::handle:
        if (isReference(code)) {
            AcDbObjectId id;
            out.handle(code, id.setFromOldId(item.resval.rlname[0]).handle());
            return true;
        }
        [[fallthrough]];
    case DxfKind::text:
        out.text(code, item.resval.rstring ? item.resval.rstring : L"");
        return true;
    }
    return false;
}

} // namespace

resbuf* chainOfTags(const AcDbDatabaseImpl& database, std::string_view bytes)
{
    return TagsToChain(database).convert(bytes);
}

bool writeChain(const resbuf* chain, DxfTagWriter& out)
{
    try {
        for (; chain; chain = chain->rbnext)
            if (!writeItem(*chain, out))
                return false;
    } catch (const DxfError&) { // a value that the form cannot hold, such as a number that is not finite
        return false;
    }
    return true;
}

resbuf* copyOfItem(const resbuf& item)
{
    resbuf* copy = acutNewRb(item.restype);
    copy->resval = item.resval;
    const DxfKind kind = dxfKind(item.restype);
    if (kind == DxfKind::text || (kind == DxfKind::handle && !isReference(item.restype))) {
        copy->resval.rstring = nullptr;
        acutNewString(item.resval.rstring ? item.resval.rstring : L"", copy->resval.rstring);
    } else if (kind == DxfKind::bytes) {
        const auto size = static_cast<std::size_t>(item.resval.rbinary.clen);
        acutNewBuffer(copy->resval.rbinary.buf, size);
        if (size > 0)
            std::memcpy(copy->resval.rbinary.buf, item.resval.rbinary.buf, size);
    }
    return copy;
}

resbuf* copyOfChain(const resbuf* chain, const resbuf* last)
{
    resbuf* head = nullptr;
    resbuf** end = &head;
    for (; chain != last; chain = chain->rbnext) {
        *end = copyOfItem(*chain);
        end = &(*end)->rbnext;
    }
    return head;
}

namespace {

/// Whether each item can be written, and `accepts` its group code.
template <class Accepts>
bool isWritable(const resbuf* chain, Accepts accepts)
{
    DxfForm form; // binary: the one that has bounds for everything
    form.binary = true;
    form.encoding = &DxfEncoding::utf8();
    std::string scratch;
    DxfTagWriter out(form, scratch);
    try {
        for (; chain; chain = chain->rbnext) {
            if (!accepts(chain->restype) || !writeItem(*chain, out))
                return false;
            scratch.clear();
        }
    } catch (const DxfError&) {
        return false;
    }
    return true;
}

} // namespace

bool isExtendedData(const resbuf* chain)
{
    constexpr int first = 1000;
    return isWritable(chain, [](int code) { return code >= first; });
}

// A comment would not be read again, and the name of an application would open extended data.
bool hasXrecordCodes(const resbuf* chain)
{
    constexpr int application = 1001;
    while (chain && chain->restype != commentCode && chain->restype != application)
        chain = chain->rbnext;
    return !chain;
}

bool isXrecordData(const resbuf* chain)
{
    return hasXrecordCodes(chain) && isWritable(chain, [](int) { return true; });
}
