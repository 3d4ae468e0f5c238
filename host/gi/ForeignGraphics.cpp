#include <map>

#include "db/DatabaseImpl.h"
#include "db/fields/DxfFields.h"
#include "gi/DimensionStyle.h"
#include "gi/EntityGraphics.h"
#include "gi/ForeignKinds.h"
#include "gi/RecordTags.h"
#include "text/TextMetrics.h"

#include "dbproxy.h"

/// Entities whose classes are not modelled, drawn from the tags of their file.

namespace {

using AddTags = void (*)(const RecordTags& tags, DisplayList& list);

void addLineWithoutEnd(const RecordTags& tags, DisplayList& list, bool bothWays)
{
    addEndless(tags.point(10, AcGePoint3d::kOrigin), tags.point(11, AcGePoint3d(1.0, 0.0, 0.0)).asVector(), bothWays,
               list);
}

void addRay(const RecordTags& tags, DisplayList& list)
{
    addLineWithoutEnd(tags, list, false);
}

void addConstructionLine(const RecordTags& tags, DisplayList& list)
{
    addLineWithoutEnd(tags, list, true);
}

// ---- multiple lines

/// A vertex: where it stands, how the line goes on, along what its elements meet, and for each element the distances
/// of group 41: how far it lies along the meeting, then where along the line it starts, stops, starts again.
struct MultiVertex {
    AcGePoint3d point;
    AcGeVector3d way, meeting;
    std::vector<std::vector<double>> elements;

    AcGePoint3d at(std::size_t element) const
    {
        const bool known = element < elements.size() && !elements[element].empty();
        return known ? point + meeting * elements[element].front() : point;
    }
};

std::vector<MultiVertex> verticesOf(const RecordTags& tags)
{
    constexpr std::size_t mostElements = 64;
    std::vector<MultiVertex> vertices;
    const auto coordinate = [&](int code, auto& point, const DxfTag& tag) {
        (tag.code == code ? point.x : tag.code == code + 10 ? point.y : point.z) = tags.real(tag);
    };
    for (const DxfTag& tag : tags) {
        if (tag.code == 11)
            vertices.emplace_back();
        if (vertices.empty())
            continue;
        MultiVertex& vertex = vertices.back();
        switch (tag.code) {
        case 11:
        case 21:
        case 31:
            coordinate(11, vertex.point, tag);
            break;
        case 12:
        case 22:
        case 32:
            coordinate(12, vertex.way, tag);
            break;
        case 13:
        case 23:
        case 33:
            coordinate(13, vertex.meeting, tag);
            break;
        case 74:
            if (vertex.elements.size() < mostElements)
                vertex.elements.emplace_back();
            break;
        case 41:
            if (!vertex.elements.empty())
                vertex.elements.back().push_back(tags.real(tag));
            break;
        default:
            break;
        }
    }
    return vertices;
}

/// One element between two vertices: whole, or in the pieces that its cuts leave.
void addElement(const MultiVertex& from, const MultiVertex& to, std::size_t element, DisplayList& list)
{
    const std::vector<double>& distances = from.elements[element];
    const AcGePoint3d start = from.at(element), end = to.at(element);
    const AcGeVector3d way = end - start;
    const double length = way.length();
    if (!(length > 0.0))
        return;
    const auto piece = [&](double first, double last) {
        Path path;
        path.points = {start + way * (first / length), start + way * (last / length)};
        list.add(std::move(path));
    };
    if (distances.size() <= 2)
        return piece(0.0, length);
    for (std::size_t i = 1; i < distances.size(); i += 2)
        piece(distances[i], i + 1 < distances.size() ? distances[i + 1] : length);
}

void addMultiline(const RecordTags& tags, DisplayList& list)
{
    constexpr int closedFlag = 2, noStart = 4, noEnd = 8;
    const int flags = tags.integer(71, 0);
    const std::vector<MultiVertex> vertices = verticesOf(tags);
    const bool closed = (flags & closedFlag) != 0;
    for (std::size_t i = 0; i + (closed ? 0 : 1) < vertices.size(); ++i) {
        const MultiVertex& next = vertices[i + 1 < vertices.size() ? i + 1 : 0];
        for (std::size_t element = 0; element < vertices[i].elements.size(); ++element)
            addElement(vertices[i], next, element, list);
    }
    if (vertices.size() < 2 || closed)
        return;
    const auto cap = [&](const MultiVertex& vertex) {
        Path path;
        for (std::size_t element = 0; element < vertex.elements.size(); ++element)
            path.points.push_back(vertex.at(element));
        list.add(std::move(path));
    };
    constexpr int squareStart = 16, squareEnd = 256; // of the style
    const int style = RecordTags(tags.object(340)).integer(70, 0);
    if ((style & squareStart) != 0 && (flags & noStart) == 0)
        cap(vertices.front());
    if ((style & squareEnd) != 0 && (flags & noEnd) == 0)
        cap(vertices.back());
}

// ---- tolerances

/// The letters of the symbol font of tolerances in characters that the font of pictures has.
std::wstring symbolOf(wchar_t letter)
{
    static const std::map<wchar_t, const wchar_t*> symbols = {
        {L'j', L"\u2295"}, {L'r', L"\u25CE"},   {L'i', L"\u2261"}, {L'f', L"\u2225"},       {L'b', L"\u27C2"},
        {L'a', L"\u2220"}, {L'g', L"/\u25CB/"}, {L'c', L"\u23E5"}, {L'e', L"\u25CB"},       {L'u', L"\u2014"},
        {L'd', L"\u25D3"}, {L'k', L"\u25E0"},   {L'h', L"\u2197"}, {L't', L"\u2197\u2197"}, {L'n', L"\u2300"},
        {L'm', L"(M)"},    {L'l', L"(L)"},      {L's', L"(S)"},    {L'p', L"(P)"}};
    const auto found = symbols.find(letter);
    return found == symbols.end() ? std::wstring(1, letter) : found->second;
}

/// Rows of frames, each a text: "{\Fgdt;j}%%v0.1%%vA" and what follows its line end have three in the first row.
std::vector<std::vector<std::wstring>> framesOf(const std::wstring& text)
{
    std::vector<std::vector<std::wstring>> rows(1, std::vector<std::wstring>(1));
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto follows = [&](std::wstring_view what) { return text.compare(i, what.size(), what) == 0; };
        if (follows(L"%%v")) {
            rows.back().emplace_back();
            i += 2;
        } else if (text[i] == L'\n') { // "^J" in the file
            rows.emplace_back(1);
        } else if (follows(L"\\n")) {
            rows.emplace_back(1);
            ++i;
        } else if (follows(L"{\\F") || follows(L"{\\f")) {
            const std::size_t name = text.find(L';', i), close = text.find(L'}', i);
            if (name == text.npos || close == text.npos || close < name)
                break;
            for (std::size_t k = name + 1; k < close; ++k)
                rows.back().back() += symbolOf(text[k]);
            i = close;
        } else
            rows.back().back() += text[i];
    }
    return rows;
}

void addTolerance(const RecordTags& tags, DisplayList& list)
{
    const DimensionStyle style = dimensionStyleNamed(list.current().entity, tags.text(3));
    const double height = style.textHeight, margin = height / 2.0;
    const AcGeVector3d given = tags.point(11, AcGePoint3d(1.0, 0.0, 0.0)).asVector();
    const AcGeVector3d along = given.length() > 0.0 ? given.normal() : AcGeVector3d(1.0, 0.0, 0.0);
    const AcGeVector3d up = tags.point(210, AcGePoint3d(0.0, 0.0, 1.0)).asVector().crossProduct(along).normal();
    const AcGePoint3d base = tags.point(10, AcGePoint3d::kOrigin);
    list.add(Anchor{base});
    double low = -height; // the point is half way up the first row
    for (const auto& row : framesOf(tags.text(1))) {
        double left = 0.0;
        for (const std::wstring& text : row) {
            if (text.empty())
                continue;
            const double wide = (textWidth(text) + 1.0) * height;
            const auto at = [&](double x, double y) { return base + along * x + up * y; };
            Path frame;
            frame.points = {at(left, low), at(left + wide, low), at(left + wide, low + 2.0 * height),
                            at(left, low + 2.0 * height), at(left, low)};
            list.add(std::move(frame));
            Label label;
            label.text = text;
            label.origin = at(left + margin, low + margin);
            label.along = along * height;
            label.up = up * height;
            list.add(std::move(label));
            left += wide;
        }
        low -= 2.0 * height;
    }
}

/// Dimensions along an arc, and of radii too large to show their centre: as their block was drawn last, moved by as
/// much as they were since.
void addDimensionBlock(const RecordTags& tags, DisplayList& list)
{
    BlockUse use;
    use.block = AcDbDatabaseImpl::of(list.current().entity.stub()).named(NameKind::block, tags.text(2));
    use.toOwner = AcGeMatrix3d::translation(tags.point(12, AcGePoint3d::kOrigin).asVector());
    if (use.block)
        list.add(use);
}

AddTags kindNamed(std::string_view name)
{
    static const std::map<std::string, AddTags, std::less<>> kinds = {
        {"RAY", addRay},
        {"XLINE", addConstructionLine},
        {"MLINE", addMultiline},
        {"TOLERANCE", addTolerance},
        {"LEADER", addLeader},
        {"MULTILEADER", addMultileader},
        {"MLEADER", addMultileader},
        {"ACAD_TABLE", addTable},
        {"ARC_DIMENSION", addDimensionBlock},
        {"LARGE_RADIAL_DIMENSION", addDimensionBlock},
        {"OLE2FRAME", addEmbedded},
        {"IMAGE", addImage},
        {"WIPEOUT", addWipeout},
        {"VIEWPORT", addViewportFrame},
        {"PDFUNDERLAY", addUnderlay},
        {"DWFUNDERLAY", addUnderlay},
        {"DGNUNDERLAY", addUnderlay},
    };
    const auto found = kinds.find(name);
    return found == kinds.end() ? nullptr : found->second;
}

AddTags kindOf(const AcDbEntity& entity)
{
    const AcDbObjectId id = entity.objectId();
    return id.isNull() ? nullptr : kindNamed(AcDbDatabaseImpl::of(id.stub()).typeName(*recordOf(id)));
}

} // namespace

void addEndless(const AcGePoint3d& base, const AcGeVector3d& way, bool bothWays, DisplayList& list)
{
    constexpr double endless = 1e9; // drawing units: beyond any view, and near enough for its digits
    if (!(way.length() > 0.0))
        return;
    Path path;
    path.points = {bothWays ? base - way.normal() * endless : base, base + way.normal() * endless};
    list.current().isEndless = true;
    list.add(Anchor{base});
    list.add(std::move(path));
}

bool isShownByTags(const AcDbEntity& entity)
{
    return kindOf(entity) != nullptr || !keptPicture(RecordTags(entity.objectId())).empty();
}

void addByTags(const AcDbEntity& entity, DisplayList& list)
{
    const RecordTags tags(entity.objectId());
    if (const AddTags add = kindOf(entity))
        add(tags, list);
    else
        addKeptPicture(entity, tags, list);
}

std::map<std::string, std::size_t> entitiesNotDrawn(const AcDbDatabase& database)
{
    const AcDbDatabaseImpl& drawing = database.impl();
    std::map<std::string, std::size_t> kinds;
    for (const DxfRecord& record : drawing.file().records()) {
        if (!drawing.holdsObject(record) || isErased(record))
            continue;
        const DxfClass& dxfClass = drawing.classOf(record);
        const std::string& name = drawing.typeName(record);
        if (dxfClass.isEntity && dxfClass.rxClass == AcDbProxyEntity::desc() && !kindNamed(name) &&
            keptPicture(RecordTags(AcDbObjectId(stubOf(&record)))).empty())
            ++kinds[name];
    }
    return kinds;
}

std::string notDrawnSentence(const AcDbDatabase& database)
{
    std::string kinds;
    std::size_t all = 0;
    for (const auto& [name, count] : entitiesNotDrawn(database)) {
        all += count;
        kinds += (kinds.empty() ? "" : ", ") + std::to_string(count) + " " + name;
    }
    if (all == 0)
        return {};
    return (all == 1 ? "1 entité n'est pas dessinée : " : std::to_string(all) + " entités ne sont pas dessinées : ") +
           kinds;
}
