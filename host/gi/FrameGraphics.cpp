#include <algorithm>

#include "gi/ForeignKinds.h"
#include "text/TextMetrics.h"

namespace {

constexpr double nameShare = 0.1; // of a frame's height, for its name

/// The last part of a path, whichever way it was written.
std::wstring fileName(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"/\\") + 1);
}

/// A closed line through the corners.
Path outline(std::vector<AcGePoint3d> corners)
{
    Path path;
    path.points = std::move(corners);
    path.points.push_back(path.points.front());
    return path;
}

/// The name in the middle of a parallelogram: a share of its height, or less for the name to fit.
void addName(const std::wstring& name, const AcGePoint3d& corner, const AcGeVector3d& across, const AcGeVector3d& up,
             double share, DisplayList& list)
{
    const double wide = textWidth(name), most = across.length() * 0.9;
    if (!(wide > 0.0) || !(up.length() > 0.0) || !(most > 0.0))
        return;
    const double height = std::min(up.length() * share, most / wide);
    Label label;
    label.text = name;
    label.along = across.normal() * height;
    label.up = up.normal() * height;
    label.origin = corner + across / 2.0 + up / 2.0 - label.along * (wide / 2.0) - label.up / 2.0;
    list.add(std::move(label));
}

/// Where an image lies: its lower left corner, and the ways along a row of pixels and up a column.
struct Raster {
    AcGePoint3d corner;
    AcGeVector3d across, up; ///< of the whole image
    double columns, rows;

    explicit Raster(const RecordTags& tags) :
        corner(tags.point(10, AcGePoint3d::kOrigin)),
        columns(tags.real(13, 1.0)),
        rows(tags.real(23, 1.0))
    {
        across = tags.point(11, AcGePoint3d(1.0, 0.0, 0.0)).asVector() * columns;
        up = tags.point(12, AcGePoint3d(0.0, 1.0, 0.0)).asVector() * rows;
    }

    /// Of a place in pixels, counted from the middle of the upper left one.
    AcGePoint3d at(double column, double row) const
    {
        return corner + across * ((column + 0.5) / columns) + up * (1.0 - (row + 0.5) / rows);
    }
};

/// The pairs of a code that stand behind one another.
std::vector<AcGePoint2d> pairs(const RecordTags& tags, int code)
{
    std::vector<AcGePoint2d> found;
    for (const DxfTag& tag : tags) {
        if (tag.code == code)
            found.emplace_back(tags.real(tag), 0.0);
        else if (tag.code == code + 10 && !found.empty())
            found.back().y = tags.real(tag);
    }
    return found;
}

/// What of an image shows: its clipping polygon, two corners of a rectangle, or all of it.
std::vector<AcGePoint3d> shownPart(const RecordTags& tags, const Raster& raster)
{
    const std::vector<AcGePoint2d> clip = pairs(tags, 14);
    std::vector<AcGePoint3d> corners;
    if (clip.size() == 2) {
        const auto &a = clip[0], &b = clip[1];
        corners = {raster.at(a.x, a.y), raster.at(b.x, a.y), raster.at(b.x, b.y), raster.at(a.x, b.y)};
    } else if (clip.size() > 2) {
        for (const AcGePoint2d& place : clip)
            corners.push_back(raster.at(place.x, place.y));
    } else {
        corners = {raster.corner, raster.corner + raster.across, raster.corner + raster.across + raster.up,
                   raster.corner + raster.up};
    }
    return corners;
}

/// A table that lost its block: its cells, from the upper left one, row by row, with their texts.
void addCells(const RecordTags& tags, const AcGePoint3d& place, const AcGeVector3d& along, DisplayList& list)
{
    std::vector<double> columns{0.0}, rows{0.0}; // where they end
    std::vector<std::wstring> texts;
    for (const DxfTag& tag : tags) {
        if (tag.code == 142)
            columns.push_back(columns.back() + tags.real(tag));
        else if (tag.code == 141)
            rows.push_back(rows.back() + tags.real(tag));
        else if (tag.code == 171) // a cell begins
            texts.emplace_back();
        else if (tag.code == 1 && !texts.empty())
            texts.back() = tags.text(tag);
    }
    if (columns.size() < 2 || rows.size() < 2)
        return;
    const AcGeVector3d down = along.crossProduct(AcGeVector3d::kZAxis);
    const auto line = [&](const AcGePoint3d& from, const AcGeVector3d& way) {
        Path path;
        path.points = {from, from + way};
        list.add(std::move(path));
    };
    for (const double x : columns)
        line(place + along * x, down * rows.back());
    for (const double y : rows)
        line(place + down * y, along * columns.back());
    const std::size_t across = columns.size() - 1;
    for (std::size_t i = 0; i < texts.size() && i / across + 1 < rows.size(); ++i) {
        const std::size_t row = i / across, column = i % across;
        const double high = rows[row + 1] - rows[row], wide = columns[column + 1] - columns[column];
        addName(texts[i], place + along * columns[column] + down * rows[row + 1], along * wide, down * -high, 0.4,
                list);
    }
}

} // namespace

/// A table has a block that shows it as it was drawn last.
void addTable(const RecordTags& tags, DisplayList& list)
{
    const AcGePoint3d place = tags.point(10, AcGePoint3d::kOrigin);
    list.add(Anchor{place});
    AcGeVector3d along = tags.point(11, AcGePoint3d(1.0, 0.0, 0.0)).asVector();
    along = along.length() > 0.0 ? along.normal() : AcGeVector3d::kXAxis;
    const AcDbObjectId block = tags.object(343);
    if (block.isNull())
        return addCells(tags, place, along, list);
    BlockUse use;
    use.block = block.stub();
    use.toOwner = AcGeMatrix3d::translation(place.asVector()) *
                  AcGeMatrix3d::rotation(std::atan2(along.y, along.x), AcGeVector3d::kZAxis);
    list.add(use);
}

void addImage(const RecordTags& tags, DisplayList& list)
{
    const Raster raster(tags);
    list.add(Anchor{raster.corner});
    list.add(outline(shownPart(tags, raster)));
    addName(fileName(RecordTags(tags.object(340)).text(1)), raster.corner, raster.across, raster.up, nameShare, list);
}

void addEmbedded(const RecordTags& tags, DisplayList& list)
{
    const AcGePoint3d a = tags.point(10, AcGePoint3d::kOrigin), b = tags.point(11, AcGePoint3d::kOrigin);
    const AcGePoint3d low(std::min(a.x, b.x), std::min(a.y, b.y), a.z);
    const AcGeVector3d across(std::fabs(b.x - a.x), 0.0, 0.0), up(0.0, std::fabs(b.y - a.y), 0.0);
    list.add(outline({low, low + across, low + across + up, low + up}));
    addName(tags.text(3), low, across, up, nameShare, list);
}

/// It hides what was drawn before it.
void addWipeout(const RecordTags& tags, DisplayList& list)
{
    Path ring = outline(shownPart(tags, Raster(tags)));
    Area area;
    area.rings = {ring};
    area.hides = true;
    list.add(std::move(area));
    list.add(std::move(ring));
}

/// How large the page is stands in its own file: without a clipping line its place is marked by a cross and its name.
void addUnderlay(const RecordTags& tags, DisplayList& list)
{
    const AcGePoint3d base = tags.point(10, AcGePoint3d::kOrigin);
    const double scaleX = tags.real(41, 1.0), scaleY = tags.real(42, 1.0);
    const AcGeMatrix3d turn =
        AcGeMatrix3d::rotation(tags.real(50, 0.0) * std::acos(-1.0) / 180.0, AcGeVector3d::kZAxis);
    const AcGeVector3d across = turn * AcGeVector3d(scaleX, 0.0, 0.0), up = turn * AcGeVector3d(0.0, scaleY, 0.0);
    const auto at = [&](double x, double y) { return base + across * x + up * y; };
    list.add(Anchor{base});

    AcGePoint2d low(0.0, 0.0), high(1.0, 1.0); // drawing units of the page
    std::vector<AcGePoint2d> clip = pairs(tags, 11);
    if (clip.size() == 2)
        clip = {clip[0], {clip[1].x, clip[0].y}, clip[1], {clip[0].x, clip[1].y}};
    if (clip.empty()) {
        for (const auto& [from, to] : {std::pair(at(0.0, 0.0), at(1.0, 1.0)), std::pair(at(1.0, 0.0), at(0.0, 1.0))}) {
            Path stroke;
            stroke.points = {from, to};
            list.add(std::move(stroke));
        }
    } else {
        std::vector<AcGePoint3d> corners;
        low = high = clip.front();
        for (const AcGePoint2d& place : clip) {
            low = {std::min(low.x, place.x), std::min(low.y, place.y)};
            high = {std::max(high.x, place.x), std::max(high.y, place.y)};
            corners.push_back(at(place.x, place.y));
        }
        list.add(outline(std::move(corners)));
    }
    addName(fileName(RecordTags(tags.object(340)).text(1)), at(low.x, low.y), across * (high.x - low.x),
            up * (high.y - low.y), nameShare, list);
}

void addViewportFrame(const RecordTags& tags, DisplayList& list)
{
    const AcGePoint3d center = tags.point(10, AcGePoint3d::kOrigin);
    const double x = tags.real(40, 0.0) / 2.0, y = tags.real(41, 0.0) / 2.0;
    if (tags.integer(69, 0) == 1) // the paper itself
        return;
    list.add(outline({center + AcGeVector3d(-x, -y, 0.0), center + AcGeVector3d(x, -y, 0.0),
                      center + AcGeVector3d(x, y, 0.0), center + AcGeVector3d(-x, y, 0.0)}));
}
