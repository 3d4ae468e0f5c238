#include "db/fields/MarkedTags.h"

#include <algorithm>
#include <vector>

#include "db/fields/DxfObjectReader.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfValue.h"
#include "dxf/R12Subclasses.h"

namespace {

void copyTags(const std::vector<DxfTag>& tags, std::string& to)
{
    for (const DxfTag& tag : tags)
        to.append(tag.start, tag.next);
}

} // namespace

std::string withMarkers(const DxfForm& form, const std::string& type, std::string_view bytes)
{
    constexpr int handle = 5, owner = 330, flagsCode = 70;
    std::vector<DxfTag> head, own; // what belongs to any object, and what to this one
    std::int64_t flags = 0;
    bool inGroup = false;
    DxfCursor cursor(form, bytes);
    for (DxfTag tag; cursor.next(tag);) {
        const bool bound = tag.code == 102;
        const bool isHead =
            inGroup || bound || tag.code == 0 || tag.code == handle || (tag.code == owner && own.empty());
        (isHead ? head : own).push_back(tag);
        if (bound)
            inGroup = opensGroup(tag);
        if (tag.code == flagsCode && !dxfInteger(form, tag, flags))
            return {};
    }
    const auto& subclasses = r12Subclasses(type, flags, polylineFlagsOf(flags));
    const auto isCommon = [](const DxfTag& tag) {
        return isCommonEntityCode(tag.code) || tag.code >= extendedDataCode;
    };
    if (subclasses.empty() && !std::ranges::all_of(own, isCommon))
        return {};
    const auto sorted = sortedBelowMarkers(own, subclasses);
    std::string marked;
    DxfTagWriter out(form, marked);
    copyTags(head, marked);
    out.rawText(100, "AcDbEntity");
    copyTags(sorted.front(), marked);
    for (std::size_t i = 0; i < subclasses.size(); ++i) {
        out.rawText(100, subclasses[i].marker);
        copyTags(sorted[i + 1], marked);
    }
    copyTags(sorted.back(), marked);
    return marked;
}
