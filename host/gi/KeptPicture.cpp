#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>

#include "db/DatabaseImpl.h"
#include "ge/Angles.h"
#include "gi/BitPolyline.h"
#include "gi/ChunkReader.h"
#include "gi/EntityGraphics.h"
#include "gi/ForeignKinds.h"
#include "gi/ReferenceClip.h"
#include "text/ShownText.h"

/// Pictures that entities bring along for programs without their class: a run of chunks, each with its size and its
/// kind before its numbers, low bytes first. Layers and linetypes are given by their places in the tables of the
/// drawing. What cannot be understood is passed by, and takes nothing of the rest along.

namespace {

class KeptPicture {
public:
    KeptPicture(const AcDbEntity& entity, const RecordTags& tags, DisplayList& list) :
        m_entity(entity),
        m_tags(tags),
        m_list(list)
    {
    }

    void add(std::string_view bytes)
    {
        constexpr std::size_t head = 8; // of the picture: its size and number of chunks; of a chunk: its size and kind
        for (std::size_t at = head; at + head <= bytes.size();) {
            ChunkReader reader(bytes.substr(at));
            const std::int64_t size = reader.integer();
            const std::int32_t kind = reader.integer();
            if (size < static_cast<std::int64_t>(head) || static_cast<std::size_t>(size) > bytes.size() - at)
                return;
            if (const auto found = kinds().find(kind); found != kinds().end()) {
                ChunkReader values(bytes.substr(at + head, static_cast<std::size_t>(size) - head));
                (this->*found->second)(values);
            }
            at += static_cast<std::size_t>(size);
        }
    }

private:
    using Kind = void (KeptPicture::*)(ChunkReader&);

    static const std::map<std::int32_t, Kind>& kinds()
    {
        static const std::map<std::int32_t, Kind> table = {
            {2, &KeptPicture::circle},
            {3, &KeptPicture::circleThroughPoints},
            {4, &KeptPicture::arc},
            {5, &KeptPicture::arcThroughPoints},
            {6, &KeptPicture::polyline},
            {7, &KeptPicture::polygon},
            {8, &KeptPicture::mesh},
            {9, &KeptPicture::shell},
            {10, &KeptPicture::plainText},
            {11, &KeptPicture::styledText},
            {12, &KeptPicture::constructionLine},
            {13, &KeptPicture::ray},
            {14, &KeptPicture::color},
            {16, &KeptPicture::layer},
            {18, &KeptPicture::linetype},
            {20, &KeptPicture::fill},
            {22, &KeptPicture::trueColor},
            {23, &KeptPicture::lineWeight},
            {24, &KeptPicture::linetypeScale},
            {27, &KeptPicture::pushClip},
            {28, &KeptPicture::popClip},
            {29, &KeptPicture::pushMatrix},
            {30, &KeptPicture::pushMatrix},
            {31, &KeptPicture::popMatrix},
            {32, &KeptPicture::polyline},
            {33, &KeptPicture::bitPolyline},
            {36, &KeptPicture::plainWideText},
            {38, &KeptPicture::styledWideText},
        };
        return table;
    }

    AcGeMatrix3d matrix() const { return m_matrices.empty() ? AcGeMatrix3d() : m_matrices.back(); }

    // ---- lines

    Path pathThrough(std::vector<AcGePoint3d> points, bool closed) const
    {
        Path path;
        for (AcGePoint3d& point : points)
            point = matrix() * point;
        if (closed && !points.empty())
            points.push_back(points.front());
        path.points = std::move(points);
        return path;
    }

    void polyline(ChunkReader& values) { m_list.add(pathThrough(values.points(values.integer()), false)); }

    void bitPolyline(ChunkReader& values)
    {
        if (std::optional<PlanePolyline> line = planePolylineIn(values.rest()))
            addPlanePolyline(std::move(*line), m_list, matrix());
    }

    void constructionLine(ChunkReader& values) { addThrough(values, true); }
    void ray(ChunkReader& values) { addThrough(values, false); }

    void addThrough(ChunkReader& values, bool bothWays)
    {
        const AcGePoint3d base = matrix() * values.point(), other = matrix() * values.point();
        beginPiece();
        addEndless(base, other - base, bothWays, m_list);
        beginPiece();
    }

    void polygon(ChunkReader& values)
    {
        Path ring = pathThrough(values.points(values.integer()), true);
        if (m_isFilled)
            m_list.add(Area{{ring}, true});
        else
            m_list.add(std::move(ring));
    }

    void mesh(ChunkReader& values)
    {
        const std::int64_t rows = values.integer(), columns = values.integer();
        const std::vector<AcGePoint3d> grid = values.points(rows * columns);
        if (rows < 2 || columns < 2 || grid.size() != static_cast<std::size_t>(rows * columns))
            return;
        const auto lines = [&](std::int64_t count, std::int64_t step, std::int64_t length, std::int64_t along) {
            for (std::int64_t i = 0; i < count; ++i) {
                std::vector<AcGePoint3d> line;
                for (std::int64_t k = 0; k < length; ++k)
                    line.push_back(grid[static_cast<std::size_t>(i * step + k * along)]);
                m_list.add(pathThrough(std::move(line), false));
            }
        };
        lines(rows, columns, columns, 1);
        lines(columns, 1, rows, columns);
    }

    void shell(ChunkReader& values)
    {
        const std::vector<AcGePoint3d> corners = values.points(values.integer());
        const std::vector<std::int32_t> faces = values.integers(values.integer());
        for (std::size_t at = 0; at < faces.size();) {
            const std::size_t count = static_cast<std::size_t>(std::abs(std::int64_t{faces[at++]})); // holes: negative
            std::vector<AcGePoint3d> ring;
            for (std::size_t i = 0; i < count && at < faces.size(); ++i, ++at)
                if (faces[at] >= 0 && static_cast<std::size_t>(faces[at]) < corners.size())
                    ring.push_back(corners[static_cast<std::size_t>(faces[at])]);
            m_list.add(pathThrough(std::move(ring), true));
        }
    }

    // ---- circles

    void addArc(const AcGePoint3d& center, const AcGeVector3d& toStart, const AcGeVector3d& across, double turn)
    {
        const AcGeMatrix3d place = matrix();
        m_list.add(arcPath({0, place * center, place * toStart, place * (turn < 0.0 ? -across : across),
                            std::min(std::fabs(turn), wholeTurn)}));
    }

    void circle(ChunkReader& values)
    {
        const AcGePoint3d center = values.point();
        const double radius = values.real();
        const AcGeMatrix3d plane = planeOf(values.point().asVector());
        addArc(center, plane * AcGeVector3d(radius, 0.0, 0.0), plane * AcGeVector3d(0.0, radius, 0.0), wholeTurn);
    }

    void arc(ChunkReader& values)
    {
        const AcGePoint3d center = values.point();
        const double radius = values.real();
        const AcGeVector3d normal = values.point().asVector().normal();
        const AcGeVector3d toStart = values.point().asVector().normal() * radius;
        addArc(center, toStart, normal.crossProduct(toStart), values.real());
    }

    void circleThroughPoints(ChunkReader& values) { throughPoints(values, true); }
    void arcThroughPoints(ChunkReader& values) { throughPoints(values, false); }

    void throughPoints(ChunkReader& values, bool whole)
    {
        const AcGePoint3d first = values.point(), second = values.point(), last = values.point();
        const AcGeVector3d a = second - first, b = last - first, normal = a.crossProduct(b);
        const double twice = 2.0 * normal.dotProduct(normal);
        if (!(twice > 0.0))
            return;
        const AcGePoint3d center =
            first + (normal.crossProduct(a) * b.dotProduct(b) + b.crossProduct(normal) * a.dotProduct(a)) / twice;
        const AcGeVector3d toStart = first - center, across = normal.normal().crossProduct(toStart),
                           toEnd = last - center;
        const double turn = std::atan2(toEnd.dotProduct(across), toEnd.dotProduct(toStart));
        addArc(center, toStart, across, whole ? wholeTurn : turn > 0.0 ? turn : turn + wholeTurn);
    }

    // ---- texts

    struct TextPlace {
        AcGePoint3d start;
        AcGeVector3d normal, along;

        explicit TextPlace(ChunkReader& values) :
            start(values.point()),
            normal(values.point().asVector()),
            along(values.point().asVector())
        {
        }
    };

    /// @param isRaw control codes stay as they are
    void addText(const TextPlace& place, const std::wstring& text, bool isRaw, ChunkReader& values)
    {
        const double height = values.real(), widthFactor = values.real(), oblique = values.real();
        const AcGeVector3d along = place.along.normal(), up = place.normal.crossProduct(along).normal();
        Label label;
        label.origin = matrix() * place.start;
        label.along = matrix() * (along * (height * widthFactor));
        label.up = matrix() * ((up + along * std::tan(oblique)) * height);
        addRuns(isRaw ? std::vector{ShownRun{text}} : shownText(text), std::move(label), m_list);
    }

    void plainText(ChunkReader& values)
    {
        const TextPlace place(values);
        // Its numbers stand before it.
        ChunkReader numbers = values;
        for (int i = 0; i < 3; ++i)
            values.real();
        addText(place, m_tags.decoded(values.text()), false, numbers);
    }

    void plainWideText(ChunkReader& values)
    {
        const TextPlace place(values);
        ChunkReader numbers = values;
        for (int i = 0; i < 3; ++i)
            values.real();
        addText(place, values.wideText(), false, numbers);
    }

    void styledText(ChunkReader& values)
    {
        const TextPlace place(values);
        addStyled(place, m_tags.decoded(values.text()), values);
    }

    void styledWideText(ChunkReader& values)
    {
        const TextPlace place(values);
        addStyled(place, values.wideText(), values);
    }

    /// A length, and whether control codes stay as they are; then the numbers.
    void addStyled(const TextPlace& place, const std::wstring& text, ChunkReader& values)
    {
        values.integer();
        const bool isRaw = values.integer() != 0;
        addText(place, text, isRaw, values);
    }

    // ---- looks of what follows

    DisplayPart& beginPiece()
    {
        const EntityLook look = m_list.current().look;
        DisplayPart& piece = m_list.begin(m_entity);
        piece.look = look;
        piece.clip = m_clips.empty() ? nullptr : m_clips.back();
        piece.isPiece = true;
        return piece;
    }

    DisplayPart& nextPart()
    {
        const DisplayPart& part = m_list.current();
        return part.first < part.last ? beginPiece() : m_list.current();
    }

    EntityLook& nextLook() { return nextPart().look; }

    /// The first part keeps the layer of the entity: where that one is frozen nothing shows.
    void layer(ChunkReader& values)
    {
        const std::vector<AcDbStub*>& layers = namesOf(NameKind::layer).records();
        DisplayPart& piece = m_list.current().isPiece ? nextPart() : beginPiece();
        const auto number = static_cast<std::uint32_t>(values.integer());
        const bool isKnown = number < layers.size() && !isErased(*recordOf(layers[number]));
        piece.look.layer = isKnown ? layers[number] : m_entity.layerId().stub();
    }

    void linetype(ChunkReader& values)
    {
        constexpr std::uint32_t byLayer = 32767, byBlock = 32766;
        const AcDbDatabase& database = *m_entity.database();
        const auto number = static_cast<std::uint32_t>(values.integer());
        nextLook().linetype = number == byLayer   ? database.byLayerLinetype().stub()
                              : number == byBlock ? database.byBlockLinetype().stub()
                                                  : numberedLinetype(number);
    }

    /// Those of layers and blocks have no place in the table as a picture counts it.
    AcDbStub* numberedLinetype(std::uint32_t number)
    {
        if (m_linetypes.empty()) {
            m_linetypes = namesOf(NameKind::linetype).records();
            const AcDbDatabase& database = *m_entity.database();
            std::erase(m_linetypes, database.byLayerLinetype().stub());
            std::erase(m_linetypes, database.byBlockLinetype().stub());
        }
        const bool isKnown = number < m_linetypes.size() && !isErased(*recordOf(m_linetypes[number]));
        return isKnown ? m_linetypes[number] : m_entity.linetypeId().stub();
    }

    SymbolNames& namesOf(NameKind kind) const { return m_entity.database()->impl().names(kind); }

    void linetypeScale(ChunkReader& values)
    {
        const double scale = values.real();
        nextLook().linetypeScale = scale > 0.0 ? scale : m_entity.linetypeScale();
    }

    void color(ChunkReader& values)
    {
        EntityLook& look = nextLook();
        look.color = static_cast<std::int16_t>(std::clamp(values.integer(), 0, 256));
        look.trueColor = -1;
    }

    void trueColor(ChunkReader& values)
    {
        constexpr std::uint32_t byLayer = 0xC0, byBlock = 0xC1, direct = 0xC2, index = 0xC3;
        const auto value = static_cast<std::uint32_t>(values.integer());
        EntityLook& look = nextLook();
        look.trueColor = value >> 24 == direct ? static_cast<std::int32_t>(value & 0xFFFFFF) : -1;
        if (value >> 24 == index)
            look.color = static_cast<std::int16_t>(value & 0xFF);
        else if (value >> 24 == byLayer || value >> 24 == byBlock)
            look.color = value >> 24 == byLayer ? 256 : 0;
    }

    void lineWeight(ChunkReader& values)
    {
        nextLook().lineWeight = static_cast<std::int16_t>(std::clamp(values.integer(), -3, 211));
    }

    void fill(ChunkReader& values) { m_isFilled = values.integer() == 1; }

    void pushMatrix(ChunkReader& values)
    {
        constexpr std::size_t deepest = 256;
        AcGeMatrix3d pushed = values.matrix();
        std::ranges::copy(AcGeMatrix3d::kIdentity.entry[3], pushed.entry[3]);
        if (m_matrices.size() < deepest)
            m_matrices.push_back(matrix() * pushed);
    }

    void popMatrix(ChunkReader&)
    {
        if (!m_matrices.empty())
            m_matrices.pop_back();
    }

    // ---- clips

    void pushClip(ChunkReader& values)
    {
        std::shared_ptr<const PartClip> clip = m_clips.empty() ? nullptr : m_clips.back();
        if (std::vector<AcGePoint3d> ring = ringIn(values, clip.get()); !ring.empty()) {
            m_list.count(sizeof(PartClip) + ring.capacity() * sizeof ring.front());
            clip = std::make_shared<PartClip>(PartClip{std::move(ring), std::move(clip)});
        }
        m_clips.push_back(std::move(clip));
        nextPart().clip = m_clips.back();
    }

    void popClip(ChunkReader&)
    {
        if (!m_clips.empty())
            m_clips.pop_back();
        nextPart().clip = m_clips.empty() ? nullptr : m_clips.back();
    }

    /// None where it is not understood, or would hide all of it: rather too much is seen than nothing.
    std::vector<AcGePoint3d> ringIn(ChunkReader& values, const PartClip* outer) const
    {
        values.point(); // of its plane: the normal, and a point
        values.point();
        const std::int32_t count = values.integer();
        std::vector<AcGePoint3d> corners;
        for (std::int32_t i = 0; i < count && corners.size() <= mostCornersInAll; ++i) {
            const double x = values.real();
            corners.emplace_back(x, values.real(), 0.0);
        }
        // The last row of a matrix, always the same, may be left out: the room tells.
        const unsigned int rows = values.rest().size() < 2 * sizeof(AcGeMatrix3d) ? 3 : 4;
        const AcGeMatrix3d toRing = values.matrix(rows), toBlock = values.matrix(rows);
        if (corners.size() < 2 || isTooMuch(corners.size(), outer) || !isPlacing(toRing) || !isPlacing(toBlock))
            return {};
        std::vector<AcGePoint3d> ring = ringOfClip(std::move(corners), matrix() * toBlock * toRing.inverse());
        double area = 0.0;
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const AcGePoint3d &a = ring[i], &b = ring[(i + 1) % ring.size()];
            area += (a.x - ring[0].x) * (b.y - ring[0].y) - (b.x - ring[0].x) * (a.y - ring[0].y);
        }
        return std::isfinite(area) && area != 0.0 ? ring : std::vector<AcGePoint3d>();
    }

    /// All that shows is held against each corner of the rings in each other; areas are cut to the triangles of one,
    /// then each piece to those of the next.
    static bool isTooMuch(std::size_t corners, const PartClip* outer)
    {
        constexpr std::size_t mostPieces = 10000;
        std::size_t pieces = std::max<std::size_t>(corners, 4) - 2;
        for (; outer && pieces <= mostPieces; outer = outer->outer.get()) {
            corners += outer->ring.size();
            pieces *= outer->ring.size() - 2;
        }
        return corners > mostCornersInAll || pieces > mostPieces;
    }

    /// Whether it says where things stand: its last row is that of any such matrix.
    static bool isPlacing(const AcGeMatrix3d& matrix)
    {
        return std::ranges::equal(matrix.entry[3], AcGeMatrix3d::kIdentity.entry[3]) && !matrix.isSingular();
    }

    static constexpr std::size_t mostCornersInAll = 500; // of rings in each other

    const AcDbEntity& m_entity;
    const RecordTags& m_tags;
    DisplayList& m_list;
    std::vector<AcGeMatrix3d> m_matrices;
    std::vector<std::shared_ptr<const PartClip>> m_clips; ///< null: none that is understood
    std::vector<AcDbStub*> m_linetypes;
    bool m_isFilled = false;
};

} // namespace

std::string keptPicture(const RecordTags& tags)
{
    constexpr int shortSize = 92, longSize = 160, bytes = 310;
    std::string picture;
    bool announced = false;
    for (const DxfTag& tag : tags) {
        if (announced && tag.code == bytes)
            tags.bytes(tag, picture);
        else if (!picture.empty())
            break;
        else
            announced = tag.code == shortSize || tag.code == longSize;
    }
    return picture;
}

void addKeptPicture(const AcDbEntity& entity, const RecordTags& tags, DisplayList& list)
{
    KeptPicture(entity, tags, list).add(keptPicture(tags));
}
