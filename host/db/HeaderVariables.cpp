#include "db/HeaderVariables.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "db/DatabaseImpl.h"
#include "db/ObjectOpening.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfValue.h"

namespace {
constexpr int nameCode = 9;
constexpr int commentCode = 999;
} // namespace

std::string_view HeaderVariables::sectionBytes() const
{
    if (!m_database.isLoaded())
        return {};
    const DxfFile& file = m_database.file();
    const DxfRange* section = file.section("HEADER");
    return section ? file.bytes(file.records()[section->first]) : std::string_view();
}

const std::vector<HeaderVariables::Span>& HeaderVariables::spans() const
{
    if (m_read || !m_database.isLoaded())
        return m_spans;
    m_read = true;
    DxfCursor cursor(m_database.form(), sectionBytes());
    DxfTag tag;
    const char* opened = nullptr;
    const char* end = nullptr;
    const auto close = [&] {
        if (opened)
            m_spans.back().tags = {opened, static_cast<std::size_t>(end - opened)};
    };
    while (cursor.next(tag)) {
        if (tag.code == nameCode) {
            close();
            m_spans.push_back({std::string(dxfText(tag)), {}});
            opened = end = tag.next;
        } else if (tag.code != commentCode)
            end = tag.next;
        else if (opened == tag.start)
            opened = end = tag.next; // a comment before the value stays out of it, as one behind it does
    }
    close();
    return m_spans;
}

std::string_view HeaderVariables::tags(const std::string& name) const
{
    if (const auto changed = m_changes.find(name); changed != m_changes.end())
        return changed->second;
    const auto& all = spans();
    const auto found = std::ranges::find(all, name, &Span::name);
    return found == all.end() ? std::string_view() : found->tags;
}

bool HeaderVariables::has(const std::string& name) const
{
    return !tags(name).empty();
}

double HeaderVariables::real(const std::string& name, double otherwise) const
{
    DxfCursor cursor(m_database.form(), tags(name));
    DxfTag tag;
    double value = otherwise;
    return cursor.next(tag) && dxfReal(m_database.form(), tag, value) ? value : otherwise;
}

std::int64_t HeaderVariables::integer(const std::string& name, std::int64_t otherwise) const
{
    DxfCursor cursor(m_database.form(), tags(name));
    DxfTag tag;
    std::int64_t value = otherwise;
    return cursor.next(tag) && dxfInteger(m_database.form(), tag, value) ? value : otherwise;
}

std::wstring HeaderVariables::text(const std::string& name) const
{
    DxfCursor cursor(m_database.form(), tags(name));
    DxfTag tag;
    return cursor.next(tag) ? m_database.form().encoding->decode(dxfText(tag)) : std::wstring();
}

std::uint64_t HeaderVariables::handle(const std::string& name) const
{
    DxfCursor cursor(m_database.form(), tags(name));
    DxfTag tag;
    std::uint64_t value = 0;
    return cursor.next(tag) && dxfHandle(tag, value) ? value : 0;
}

AcGePoint3d HeaderVariables::point(const std::string& name, const AcGePoint3d& otherwise) const
{
    DxfCursor cursor(m_database.form(), tags(name));
    DxfTag tag;
    AcGePoint3d value = otherwise;
    while (cursor.next(tag)) {
        double* coordinate = tag.code == 10   ? &value.x
                             : tag.code == 20 ? &value.y
                             : tag.code == 30 ? &value.z
                                              : nullptr;
        if (coordinate)
            dxfReal(m_database.form(), tag, *coordinate);
    }
    return value;
}

void HeaderVariables::change(const std::string& name, std::string tags)
{
    if (this->tags(name) == tags)
        return;
    m_database.undo().beforeHeaderChange(name);
    m_changes[name] = std::move(tags);
    tellChanged(name);
}

void HeaderVariables::tellChanged(const std::string& name) const
{
    const std::wstring plain(name.begin() + (name.starts_with('$') ? 1 : 0), name.end());
    tellEach(m_database.reactors(), [&](AcDbDatabaseReactor& reactor) {
        reactor.headerSysVarChanged(&m_database.self(), plain.c_str(), Adesk::kTrue);
    });
}

void HeaderVariables::restore(const std::string& name, std::string_view tags)
{
    const auto& all = spans();
    const auto found = std::ranges::find(all, name, &Span::name);
    if ((found == all.end() && tags.empty()) || (found != all.end() && found->tags == tags))
        m_changes.erase(name);
    else
        m_changes[name] = tags;
    tellChanged(name);
}

void HeaderVariables::setReal(const std::string& name, int code, double value)
{
    if (real(name, std::numeric_limits<double>::quiet_NaN()) == value)
        return; // however it is written
    std::string tags;
    DxfTagWriter(m_database.form(), tags).real(code, value);
    change(name, std::move(tags));
}

void HeaderVariables::setInteger(const std::string& name, int code, std::int64_t value)
{
    if (has(name) && integer(name, value - 1) == value)
        return;
    std::string tags;
    DxfTagWriter(m_database.form(), tags).integer(code, value);
    change(name, std::move(tags));
}

void HeaderVariables::setText(const std::string& name, int code, const std::wstring& value)
{
    if (has(name) && text(name) == value)
        return;
    std::string tags;
    DxfTagWriter(m_database.form(), tags).text(code, value);
    change(name, std::move(tags));
}

void HeaderVariables::setPoint(const std::string& name, const AcGePoint3d& value)
{
    const AcGePoint3d old = point(name, AcGePoint3d::kOrigin);
    if (has(name) && old.x == value.x && old.y == value.y && old.z == value.z)
        return;
    std::string tags;
    DxfTagWriter(m_database.form(), tags).point(10, value.x, value.y, value.z);
    change(name, std::move(tags));
}

void HeaderVariables::rename(NameKind kind, const std::wstring& former, const std::wstring& name)
{
    static constexpr std::tuple<NameKind, const char*, int> variables[] = {{NameKind::layer, "$CLAYER", 8},
                                                                           {NameKind::linetype, "$CELTYPE", 6},
                                                                           {NameKind::textStyle, "$TEXTSTYLE", 7},
                                                                           {NameKind::dimStyle, "$DIMSTYLE", 2},
                                                                           {NameKind::textStyle, "$DIMTXSTY", 7}};
    for (const auto& [named, variable, code] : variables)
        if (named == kind && has(variable) && foldedName(text(variable)) == foldedName(former))
            setText(variable, code, name);
}

std::string HeaderVariables::patched(std::uint64_t handleSeed, const AcDbExtents* extents) const
{
    auto changes = m_changes;
    if (handleSeed > handle("$HANDSEED"))
        DxfTagWriter(m_database.form(), changes["$HANDSEED"] = {}).handle(5, handleSeed);
    const auto setCorner = [&](const char* name, const AcGePoint3d& corner) {
        DxfTagWriter(m_database.form(), changes[name] = {}).point(10, corner.x, corner.y, corner.z);
    };
    if (extents) {
        setCorner("$EXTMIN", extents->minPoint());
        setCorner("$EXTMAX", extents->maxPoint());
    }

    const std::string_view bytes = sectionBytes();
    std::string patched;
    const char* copied = bytes.data();
    for (const Span& span : spans()) {
        const auto change = changes.find(span.name);
        if (change == changes.end())
            continue;
        patched.append(copied, span.tags.data());
        patched.append(change->second);
        copied = span.tags.data() + span.tags.size();
        changes.erase(change);
    }
    patched.append(copied, bytes.data() + bytes.size());
    DxfTagWriter out(m_database.form(), patched);
    for (const auto& [name, tags] : changes)
        if (!tags.empty()) {
            out.rawText(nameCode, name);
            out.raw(tags);
        }
    return patched;
}
