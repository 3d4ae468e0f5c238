#include "RecordingSink.h"

#include <cmath>
#include <cstdio>

#include "platform/CodePage.h"

namespace {

std::string number(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.3f", value);
    std::string shown = text;
    shown.erase(shown.find_last_not_of('0') + 1);
    if (shown.ends_with('.'))
        shown.pop_back();
    return shown == "-0" ? "0" : shown;
}

template <class Pair>
std::string pair(const Pair& p)
{
    return number(p.x) + "," + number(p.y);
}

std::string color(const Appearance& look)
{
    char text[16];
    std::snprintf(text, sizeof text, "%06X", static_cast<unsigned>(look.rgb));
    return look.ground ? "ground" : look.contrasting ? "7" : text;
}

template <class Points>
std::string all(const Points& points)
{
    std::string text;
    for (const AcGePoint3d& point : points)
        text += " " + pair(point);
    return text;
}

} // namespace

void RecordingSink::polyline(Points points, const Appearance& look)
{
    lines.push_back("line " + color(look) + ":" + all(points));
    polylines.emplace_back(points.begin(), points.end());
    lastWeight = look.lineWeight;
}

void RecordingSink::polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance& look)
{
    std::string text;
    for (const auto& ring : rings)
        text += (text.empty() ? "" : " |") + all(ring);
    lines.push_back("area " + color(look) + ":" + text);
}

void RecordingSink::dot(const AcGePoint3d& point, const Appearance& look)
{
    lines.push_back("dot " + color(look) + ": " + pair(point));
}

void RecordingSink::text(const TextItem& item, const Appearance& look)
{
    const std::string strokes = std::string(item.underlined ? " under" : "") + (item.overlined ? " over" : "") +
                                (item.struck ? " struck" : "") + (item.clips.empty() ? "" : " cut");
    lines.push_back("text " + color(look) + ": <" + platform::utf8FromWide(item.text) + "> at " + pair(item.origin) +
                    " along " + pair(item.along) + " up " + pair(item.up) + strokes);
}

bool RecordingSink::enter(AcDbObjectId entity, const AcGeMatrix3d&)
{
    entered.push_back(entity);
    return true;
}
