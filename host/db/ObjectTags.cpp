#include "db/ObjectTags.h"

#include <algorithm>

#include "db/DatabaseImpl.h"
#include "db/ObjectExtras.h"
#include "db/ResbufTags.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"

#include "acutmem.h"
#include "adscodes.h"
#include "dbsymtb.h"

namespace {

constexpr std::string_view dictionaryGroup = "{ACAD_XDICTIONARY";
constexpr std::string_view reactorsGroup = "{ACAD_REACTORS";
constexpr int applicationCode = 1001;

/// End of the data of the application that `item` opens.
const resbuf* nextApplication(const resbuf* item)
{
    do
        item = item->rbnext;
    while (item && item->restype != applicationCode);
    return item;
}

/// The data of a chain, an application each.
std::vector<ApplicationData> byApplication(const resbuf* data)
{
    std::vector<ApplicationData> all;
    for (const resbuf* item = data; item; item = nextApplication(item)) {
        const resbuf* const end = nextApplication(item);
        ApplicationData one{foldedName(item->resval.rstring ? item->resval.rstring : L""), nullptr};
        if (item->rbnext != end) // a lone name takes its data away
            one.items.reset(copiedChain(item, end).release(),
                            [](const resbuf* held) { acutRelRb(const_cast<resbuf*>(held)); });
        all.push_back(std::move(one));
    }
    return all;
}

constexpr std::size_t mostBytes = 16383; // of all the extended data of one object

/// What an item takes of the room for extended data: its code and its value.
std::size_t sizeOf(const resbuf& item)
{
    constexpr std::size_t head = 3, point = 24, real = 8, integer = 4;
    if (item.restype >= 1010 && item.restype < 1040)
        return head + point;
    if (item.restype >= 1040 && item.restype < 1060)
        return head + real;
    if (item.restype >= 1060)
        return head + integer;
    if (item.restype == 1004)
        return head + static_cast<std::size_t>(std::max<int>(item.resval.rbinary.clen, 0));
    return head + (item.resval.rstring ? std::char_traits<ACHAR>::length(item.resval.rstring) : 0);
}

bool isHandle(std::wstring_view text)
{
    return !text.empty() && text.size() <= 16 &&
           text.find_first_not_of(L"0123456789ABCDEFabcdef") == std::wstring_view::npos;
}

/// Braces that pair within each application, layers that the drawing has, and handles that are some.
Acad::ErrorStatus checkItems(const resbuf* data, AcDbDatabaseImpl* database)
{
    constexpr int brace = 1002, layer = 1003, handle = 1005;
    int open = 0;
    for (const resbuf* item = data; item; item = item->rbnext) {
        const std::wstring_view text = item->restype <= layer && item->resval.rstring ? item->resval.rstring : L"";
        if (item->restype == brace)
            open += text == L"{" ? 1 : text == L"}" ? -1 : -open - 1;
        if (open < 0 || (open > 0 && (!item->rbnext || item->rbnext->restype == applicationCode)))
            return Acad::eInvalidResBuf;
        if (item->restype == layer && database && !database->named(NameKind::layer, text))
            return Acad::eKeyNotFound;
        if (item->restype == handle && !isHandle(item->resval.rstring ? item->resval.rstring : L""))
            return Acad::eInvalidResBuf;
    }
    return Acad::eOk;
}

bool sameApplication(const resbuf& item, const ACHAR* name)
{
    return item.resval.rstring && foldedName(item.resval.rstring) == foldedName(name);
}

} // namespace

std::vector<std::uint64_t> ObjectTags::handlesInGroup(std::string_view group) const
{
    std::vector<std::uint64_t> handles;
    DxfCursor cursor(m_database.form(), m_database.bytes(*recordOf(m_object.m_stub)));
    DxfTag tag;
    bool inside = false;
    while (cursor.next(tag) && tag.code != 100) {
        if (tag.code == 102) {
            if (inside)
                return handles;
            inside = dxfText(tag) == group;
        } else if (std::uint64_t handle = 0; inside && dxfHandle(tag, handle))
            handles.push_back(handle);
    }
    return handles;
}

bool ObjectTags::extensionDictionaryChanged() const
{
    if (m_object.m_extras && m_object.m_extras->extensionDictionary)
        return true;
    const AcDbStub* dictionary = m_database.byHandle(extensionDictionary());
    return dictionary && isErased(*recordOf(const_cast<AcDbStub*>(dictionary)));
}
bool ObjectTags::reactorsChanged() const
{
    return m_object.m_extras && m_object.m_extras->persistentReactors;
}
bool ObjectTags::xdataChanged() const
{
    return m_object.m_extras && !m_object.m_extras->xdata.empty();
}

std::uint64_t ObjectTags::extensionDictionary() const
{
    if (m_object.m_extras && m_object.m_extras->extensionDictionary)
        return *m_object.m_extras->extensionDictionary;
    const auto handles = handlesInGroup(dictionaryGroup);
    return handles.empty() ? 0 : handles.front();
}

std::vector<std::uint64_t> ObjectTags::persistentReactors() const
{
    return reactorsChanged() ? *m_object.m_extras->persistentReactors : handlesInGroup(reactorsGroup);
}

std::string_view ObjectTags::xdataBytes() const
{
    const std::string_view bytes = m_database.bytes(*recordOf(m_object.m_stub));
    if (!m_database.form().binary && bytes.find("1001") == bytes.npos)
        return {}; // asked at each copy: most objects have none
    DxfCursor cursor(m_database.form(), bytes);
    DxfTag tag;
    while (cursor.next(tag))
        if (tag.code == applicationCode)
            return bytes.substr(static_cast<std::size_t>(tag.start - bytes.data()));
    return {};
}

void ObjectTags::writeExtensionDictionary(DxfTagWriter& out) const
{
    const std::uint64_t handle = extensionDictionary();
    const AcDbStub* dictionary = m_database.byHandle(handle);
    if (!dictionary || isErased(*recordOf(const_cast<AcDbStub*>(dictionary))))
        return;
    out.rawText(102, dictionaryGroup);
    out.handle(360, handle);
    out.rawText(102, "}");
}

void ObjectTags::writeReactors(DxfTagWriter& out) const
{
    const auto& handles = *m_object.m_extras->persistentReactors;
    if (handles.empty())
        return;
    out.rawText(102, reactorsGroup);
    for (std::uint64_t handle : handles)
        out.handle(330, handle);
    out.rawText(102, "}");
}

int ObjectTags::changeOf(std::wstring_view application) const
{
    if (!xdataChanged())
        return -1;
    const auto& changes = m_object.m_extras->xdata;
    const auto found = std::ranges::find(changes, application, &ApplicationData::application);
    return found == changes.end() ? -1 : static_cast<int>(found - changes.begin());
}

std::vector<std::pair<std::string_view, int>> ObjectTags::xdataRuns() const
{
    std::vector<std::pair<std::string_view, int>> runs;
    if (!m_object.m_stub)
        return runs;
    DxfCursor cursor(m_database.form(), xdataBytes());
    DxfTag tag;
    while (cursor.next(tag)) {
        if (tag.code == applicationCode)
            runs.emplace_back(std::string_view(tag.start, 0),
                              changeOf(foldedName(m_database.form().encoding->decode(dxfText(tag)))));
        std::string_view& run = runs.back().first;
        run = {run.data(), static_cast<std::size_t>(tag.next - run.data())};
    }
    return runs;
}

/// Data set by the program take the place of the old ones of their application; new ones go to the end.
void ObjectTags::writeXData(DxfTagWriter& out) const
{
    const auto& changes = m_object.m_extras->xdata;
    std::vector<bool> written(changes.size());
    const auto writeOnce = [&](std::size_t change) {
        if (!written[change])
            writeChain(changes[change].items.get(), out);
        written[change] = true;
    };
    for (const auto& [run, change] : xdataRuns())
        if (change < 0)
            out.raw(run);
        else
            writeOnce(static_cast<std::size_t>(change));
    for (std::size_t change = 0; change < changes.size(); ++change)
        writeOnce(change);
}

resbuf* ObjectTags::xdataChain(const ACHAR* wanted) const
{
    ResbufBuilder chain;
    static const std::vector<ApplicationData> none;
    const auto& changes = xdataChanged() ? m_object.m_extras->xdata : none;
    std::vector<bool> taken(changes.size());
    const auto appendOnce = [&](std::size_t change) {
        const resbuf* items = changes[change].items.get();
        if (!taken[change] && items && (!wanted || sameApplication(*items, wanted)))
            chain.append(copiedChain(items));
        taken[change] = true;
    };
    for (const auto& [run, change] : xdataRuns()) {
        if (change >= 0) {
            appendOnce(static_cast<std::size_t>(change));
            continue;
        }
        ResbufChain items = chainOfTags(m_database, run);
        if (items && (!wanted || sameApplication(*items, wanted)))
            chain.append(std::move(items));
    }
    for (std::size_t change = 0; change < changes.size(); ++change)
        appendOnce(change);
    return chain.take().release();
}

resbuf* ObjectTags::xData(const AcDbObject& object, const ACHAR* application)
{
    if (object.m_stub)
        return ObjectTags(AcDbDatabaseImpl::of(object.m_stub), object).xdataChain(application);
    ResbufBuilder chain; // in no database: only what the program set
    if (object.m_extras)
        for (const ApplicationData& data : object.m_extras->xdata)
            if (data.items && (!application || sameApplication(*data.items, application)))
                chain.append(copiedChain(data.items.get()));
    return chain.take().release();
}

std::vector<ApplicationData> ObjectTags::dataOf(const AcDbObject& object)
{
    const AcDbDatabaseImpl* database = object.m_stub ? &AcDbDatabaseImpl::of(object.m_stub) : nullptr;
    if (!database || ObjectTags(*database, object).xdataBytes().empty())
        return object.m_extras ? object.m_extras->xdata : std::vector<ApplicationData>();
    resbuf* const chain = ObjectTags(*database, object).xdataChain(nullptr);
    std::vector<ApplicationData> all = byApplication(chain);
    if (chain)
        acutRelRb(chain);
    return all;
}

/// Whether an object can hold the data that it has of other applications, and these.
bool ObjectTags::hasRoom(const AcDbObject& object, const std::vector<ApplicationData>& changes)
{
    std::vector<ApplicationData> all = dataOf(object);
    std::erase_if(all, [&](const ApplicationData& old) {
        return std::ranges::find(changes, old.application, &ApplicationData::application) != changes.end();
    });
    all.insert(all.end(), changes.begin(), changes.end());
    std::size_t bytes = 0;
    for (const ApplicationData& one : all)
        for (const resbuf* item = one.items.get(); item; item = item->rbnext)
            bytes += sizeOf(*item);
    return bytes <= mostBytes;
}

Acad::ErrorStatus ObjectTags::splitXData(const AcDbObject& object, const resbuf* data,
                                         std::vector<ApplicationData>& changes)
{
    if (!data || data->restype != applicationCode || !isExtendedData(data))
        return Acad::eInvalidResBuf;
    AcDbDatabaseImpl* database = object.m_stub ? &AcDbDatabaseImpl::of(object.m_stub) : nullptr;
    for (const resbuf* item = data; item; item = nextApplication(item))
        if (!item->resval.rstring || (database && !database->named(NameKind::regApp, item->resval.rstring)))
            return Acad::eRegappIdNotFound;
    if (const Acad::ErrorStatus es = checkItems(data, database); es != Acad::eOk)
        return es;
    changes = byApplication(data);
    return hasRoom(object, changes) ? Acad::eOk : Acad::eXdataSizeExceeded;
}
