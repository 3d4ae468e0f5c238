#include <memory>

#include "db/entities/MTextShown.h"
#include "gi/DimensionStyle.h"
#include "gi/EntityGraphics.h"
#include "gi/ForeignKinds.h"

#include "dbmtext.h"

namespace {

/// A filled arrow, three times as long as it is wide.
void addArrow(const AcGePoint3d& tip, const AcGePoint3d& from, double size, DisplayList& list)
{
    const AcGeVector3d back = from - tip;
    if (!(size > 0.0) || !(back.length() > size)) // a leg shorter than its arrow has none
        return;
    const AcGeVector3d way = back.normal() * size;
    const AcGeVector3d side = AcGeVector3d::kZAxis.crossProduct(way) / 6.0;
    Path ring;
    ring.points = {tip, tip + way + side, tip + way - side, tip};
    list.add(Area{{std::move(ring)}, false});
}

/// A line through points, turned into a curve that passes them when asked: a cardinal spline, eight chords a leg.
Path throughPoints(const std::vector<AcGePoint3d>& points, bool curved)
{
    Path path;
    if (!curved || points.size() < 3) {
        path.points = points;
        return path;
    }
    constexpr int chords = 8;
    path.smooth = true;
    path.points.push_back(points.front());
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const AcGePoint3d &a = points[i], &b = points[i + 1];
        const AcGeVector3d atA = (b - points[i > 0 ? i - 1 : i]) * 0.5;
        const AcGeVector3d atB = (points[i + 2 < points.size() ? i + 2 : i + 1] - a) * 0.5;
        for (int k = 1; k <= chords; ++k) {
            const double t = static_cast<double>(k) / chords, u = t * t, v = u * t;
            path.points.push_back(a + (b - a) * (3.0 * u - 2.0 * v) + atA * (v - 2.0 * u + t) + atB * (v - u));
        }
    }
    return path;
}

/// The points that tags of one code give, one after the other.
void takeCoordinate(const RecordTags& tags, const DxfTag& tag, int code, AcGePoint3d& point)
{
    (tag.code == code ? point.x : tag.code == code + 10 ? point.y : point.z) = tags.real(tag);
}

/// What the data of a multileader say of its text and its lines; "{" and "}" part them.
class MultileaderContext {
public:
    explicit MultileaderContext(const RecordTags& tags)
    {
        for (const DxfTag& tag : tags)
            take(tags, tag);
    }

    struct Line {
        std::vector<AcGePoint3d> points; ///< the arrow's tip first
    };
    struct Leader {
        AcGePoint3d end;
        AcGeVector3d landing;
        double landingLength = 0.0;
        bool hasEnd = false;
        std::vector<Line> lines;
    };

    std::vector<Leader> leaders;
    std::wstring text;
    AcGePoint3d textAt, blockAt;
    AcGeVector3d textWay{1.0, 0.0, 0.0}, blockScale{1.0, 1.0, 1.0};
    AcDbObjectId block;
    double textHeight = 0.0, textWidth = 0.0, arrow = 0.0, blockTurn = 0.0;
    int attachment = 1;
    bool hasText = false, hasBlock = false;

private:
    enum class Part { before, context, leader, line, after };

    void take(const RecordTags& tags, const DxfTag& tag)
    {
        switch (m_part) {
        case Part::before:
            if (tag.code == 300 && tags.text(tag) == L"CONTEXT_DATA{")
                m_part = Part::context;
            break;
        case Part::context:
            takeContent(tags, tag);
            break;
        case Part::leader:
            takeLeader(tags, tag);
            break;
        case Part::line:
            takeLine(tags, tag);
            break;
        case Part::after:
            break;
        }
    }

    void takeContent(const RecordTags& tags, const DxfTag& tag)
    {
        const auto part = [&](AcGeVector3d& vector, int code) {
            (tag.code == code ? vector.x : tag.code == code + 10 ? vector.y : vector.z) = tags.real(tag);
        };
        switch (tag.code) {
        case 301:
            m_part = Part::after;
            break;
        case 302:
            leaders.emplace_back();
            m_part = Part::leader;
            break;
        case 41:
            textHeight = tags.real(tag);
            break;
        case 140:
            arrow = tags.real(tag);
            break;
        case 290:
            hasText = tags.integer(tag) != 0;
            break;
        case 296:
            hasBlock = tags.integer(tag) != 0;
            break;
        case 304:
            text = tags.text(tag);
            break;
        case 12:
        case 22:
        case 32:
            takeCoordinate(tags, tag, 12, textAt);
            break;
        case 13:
        case 23:
        case 33:
            part(textWay, 13);
            break;
        case 43:
            textWidth = tags.real(tag);
            break;
        case 171:
            attachment = tags.integer(tag);
            break;
        case 341:
            block = tags.object(tag);
            break;
        case 15:
        case 25:
        case 35:
            takeCoordinate(tags, tag, 15, blockAt);
            break;
        case 16:
        case 26:
        case 36:
            part(blockScale, 16);
            break;
        case 46:
            blockTurn = tags.real(tag);
            break;
        default:
            break;
        }
    }

    void takeLeader(const RecordTags& tags, const DxfTag& tag)
    {
        Leader& leader = leaders.back();
        switch (tag.code) {
        case 303:
            m_part = Part::context;
            break;
        case 304:
            leader.lines.emplace_back();
            m_part = Part::line;
            break;
        case 10:
        case 20:
        case 30:
            leader.hasEnd = true;
            takeCoordinate(tags, tag, 10, leader.end);
            break;
        case 11:
            leader.landing.x = tags.real(tag);
            break;
        case 21:
            leader.landing.y = tags.real(tag);
            break;
        case 31:
            leader.landing.z = tags.real(tag);
            break;
        case 40:
            leader.landingLength = tags.real(tag);
            break;
        default:
            break;
        }
    }

    void takeLine(const RecordTags& tags, const DxfTag& tag)
    {
        std::vector<AcGePoint3d>& points = leaders.back().lines.back().points;
        if (tag.code == 305)
            m_part = Part::leader;
        else if (tag.code == 10)
            points.emplace_back(tags.real(tag), 0.0, 0.0);
        else if ((tag.code == 20 || tag.code == 30) && !points.empty())
            takeCoordinate(tags, tag, 10, points.back());
    }

    Part m_part = Part::before;
};

void addContextText(const MultileaderContext& context, DisplayList& list)
{
    if (!context.hasText || context.text.empty() || !(context.textHeight > 0.0))
        return;
    AcDbMText text;
    text.setContents(context.text.c_str());
    text.setLocation(context.textAt);
    text.setTextHeight(context.textHeight);
    text.setWidth(context.textWidth);
    if (context.textWay.length() > 0.0)
        text.setDirection(context.textWay);
    // The context counts left, centre, right: of the top line.
    text.setAttachment(context.attachment == 2   ? AcDbMText::kTopCenter
                       : context.attachment == 3 ? AcDbMText::kTopRight
                                                 : AcDbMText::kTopLeft);
    addMText(text, list);
}

void addContextBlock(const MultileaderContext& context, DisplayList& list)
{
    if (!context.hasBlock || context.block.isNull())
        return;
    AcGeMatrix3d scale;
    scale.entry[0][0] = context.blockScale.x;
    scale.entry[1][1] = context.blockScale.y;
    scale.entry[2][2] = context.blockScale.z;
    BlockUse use;
    use.block = context.block.stub();
    use.toOwner = AcGeMatrix3d::translation(context.blockAt.asVector()) *
                  AcGeMatrix3d::rotation(context.blockTurn, AcGeVector3d::kZAxis) * scale;
    list.add(use);
}

/// How lines run, which stands behind the context: 0 none, 1 straight, 2 curved.
int lineKind(const RecordTags& tags)
{
    bool behind = false;
    for (const DxfTag& tag : tags) {
        behind |= tag.code == 301;
        if (behind && tag.code == 170)
            return tags.integer(tag);
    }
    return 1;
}

} // namespace

void addLeader(const RecordTags& tags, DisplayList& list)
{
    std::vector<AcGePoint3d> points;
    for (const DxfTag& tag : tags) {
        if (tag.code == 10)
            points.emplace_back(tags.real(tag), 0.0, 0.0);
        else if ((tag.code == 20 || tag.code == 30) && !points.empty())
            takeCoordinate(tags, tag, 10, points.back());
    }
    if (points.size() < 2)
        return;
    list.add(throughPoints(points, tags.integer(72, 0) == 1));
    if (tags.integer(71, 1) != 0)
        addArrow(points[0], points[1], dimensionStyleNamed(list.current().entity, tags.text(3)).arrow, list);
}

void addMultileader(const RecordTags& tags, DisplayList& list)
{
    const MultileaderContext context(tags);
    const int kind = lineKind(tags);
    for (const MultileaderContext::Leader& leader : context.leaders) {
        for (const MultileaderContext::Line& line : leader.lines) {
            std::vector<AcGePoint3d> points = line.points;
            if (leader.hasEnd)
                points.push_back(leader.end);
            if (kind == 0 || points.size() < 2)
                continue;
            list.add(throughPoints(points, kind == 2));
            addArrow(points[0], points[1], context.arrow, list);
        }
        if (kind != 0 && leader.hasEnd && leader.landingLength > 0.0 && leader.landing.length() > 0.0) {
            Path landing;
            landing.points = {leader.end, leader.end + leader.landing.normal() * leader.landingLength};
            list.add(std::move(landing));
        }
    }
    addContextBlock(context, list);
    addContextText(context, list);
}
