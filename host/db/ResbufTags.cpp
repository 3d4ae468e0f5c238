#include "db/ResbufTags.h"

#include "db/DatabaseImpl.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"
#include "rx/ResbufValue.h"

#include "acutmem.h"
#include "adscodes.h"

namespace {

constexpr int commentCode = 999;

/// Makes the items of a run of tags.
class TagsToChain {
public:
    explicit TagsToChain(const AcDbDatabaseImpl& database) : m_database(database), m_form(database.form()) {}

    ResbufChain convert(std::string_view bytes)
    {
        DxfCursor cursor(m_form, bytes);
        DxfTag tag;
        while (cursor.next(tag))
            if (!continuesPoint(tag))
                take(tag);
        return m_chain.take();
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
        if (resbufKind(tag.code) != ResbufKind::point) {
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
        if (!(resbufKind(tag.code) == ResbufKind::name)) {
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
    ResbufBuilder m_chain;
    resbuf* m_point = nullptr;
    int m_pointCode = 0;
    int m_nextPart = 0;
    std::string m_buffer;
    std::wstring m_text;
};

/// Writes what a buffer holds under a group code. False for what no file holds.
struct ItemWriter {
    DxfTagWriter& out;
    int code;

    bool operator()(double value) const
    {
        out.real(code, value);
        return true;
    }
    bool operator()(std::int64_t value) const
    {
        out.integer(code, value);
        return true;
    }
    bool operator()(std::wstring_view value) const
    {
        out.text(code, value);
        return true;
    }
    bool operator()(std::span<const ads_real> point) const
    {
        out.point(code, point[0], point[1], point[2]);
        return true;
    }
    bool operator()(ResbufName name) const
    {
        AcDbObjectId id;
        out.handle(code, id.setFromOldId(name.words[0]).handle());
        return true;
    }
    bool operator()(const ads_binary& block) const
    {
        if (block.clen < 0)
            return false;
        out.bytes(code, {block.buf, static_cast<std::size_t>(block.clen)});
        return true;
    }
    bool operator()(std::monostate) const { return false; }
};

bool writeItem(const resbuf& item, DxfTagWriter& out)
{
    const int code = item.restype;
    return code > 0 && code <= dxfLastCode && visitValue(item, ItemWriter{out, code});
}

} // namespace

ResbufChain chainOfTags(const AcDbDatabaseImpl& database, std::string_view bytes)
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
