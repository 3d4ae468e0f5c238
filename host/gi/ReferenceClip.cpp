#include "gi/ReferenceClip.h"

#include <cmath>

#include "gi/RecordTags.h"

#include "dbdict.h"
#include "dbents.h"

namespace {

/// The filter of space that the extension dictionary of a reference holds.
AcDbObjectId filterOf(const AcDbBlockReference& reference)
{
    AcDbObjectId filters, filter;
    const AcDbObjectPointer<AcDbDictionary> extension(reference.extensionDictionary());
    if (!extension.object() || extension->getAt(L"ACAD_FILTER", filters) != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbDictionary> dictionary(filters);
    if (!dictionary.object() || dictionary->getAt(L"SPATIAL", filter) != Acad::eOk)
        return {};
    return filter;
}

/// What a filter of space says.
struct Boundary {
    std::vector<AcGePoint3d> ring; ///< in coordinates of its own
    std::vector<double> matrices;  ///< world to block, then world to the ring's coordinates: three rows of four each
    bool isShown = false;
};

Boundary read(const RecordTags& tags)
{
    Boundary boundary;
    bool frontFollows = false; // its distance has the code of the matrices
    for (const DxfTag& tag : tags)
        switch (tag.code) {
        case 10:
            boundary.ring.emplace_back(tags.real(tag), 0.0, 0.0);
            break;
        case 20:
            if (!boundary.ring.empty())
                boundary.ring.back().y = tags.real(tag);
            break;
        case 71:
            boundary.isShown = tags.integer(tag) != 0;
            break;
        case 72:
            frontFollows = tags.integer(tag) != 0;
            break;
        case 40:
            if (!frontFollows)
                boundary.matrices.push_back(tags.real(tag));
            frontFollows = false;
            break;
        default:
            break;
        }
    return boundary;
}

AcGeMatrix3d matrixOf(const std::vector<double>& values, std::size_t from)
{
    AcGeMatrix3d matrix;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            matrix.entry[row][column] = values[from + 4 * row + column];
    return matrix;
}

} // namespace

std::vector<AcGePoint3d> ringOfClip(std::vector<AcGePoint3d> corners, const AcGeMatrix3d& toOwner)
{
    if (corners.size() == 2) { // of a rectangle
        const AcGePoint3d a = corners[0], b = corners[1];
        corners = {a, {b.x, a.y, 0.0}, b, {a.x, b.y, 0.0}};
    }
    for (AcGePoint3d& point : corners) {
        point = toOwner * point;
        if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
            return {};
    }
    return corners;
}

std::vector<AcGePoint3d> clipOf(const AcDbBlockReference& reference)
{
    constexpr std::size_t values = 24;
    const AcDbObjectId filter = filterOf(reference);
    if (filter.isNull())
        return {};
    Boundary boundary = read(RecordTags(filter));
    if (!boundary.isShown || boundary.ring.size() < 2 || boundary.matrices.size() < values)
        return {};
    return ringOfClip(std::move(boundary.ring),
                      matrixOf(boundary.matrices, 0) * matrixOf(boundary.matrices, values / 2).inverse());
}
