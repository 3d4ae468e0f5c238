#include "db/fields/NameReferences.h"

#include <algorithm>
#include <array>

#include "dxf/DxfCursor.h"
#include "dxf/DxfTagWriter.h"
#include "dxf/DxfValue.h"

std::optional<NameKind> namedBy(std::string_view type, bool isEntity, int code)
{
    if (type == "XRECORD")
        return {}; // its codes mean what its maker chose
    const auto isOneOf = [type](const auto& names) { return std::ranges::find(names, type) != names.end(); };
    static constexpr std::array<std::string_view, 6> showBlocks = {
        "INSERT", "DIMENSION", "ARC_DIMENSION", "BLOCK_RECORD", "ACAD_TABLE", "LARGE_RADIAL_DIMENSION"};
    static constexpr std::array<std::string_view, 5> dimensioned = {"DIMENSION", "ARC_DIMENSION", "LEADER", "TOLERANCE",
                                                                    "LARGE_RADIAL_DIMENSION"};
    switch (code) {
    case 1001:
        return NameKind::regApp;
    case 1003:
        return NameKind::layer;
    case 8:
        return isEntity ? std::optional(NameKind::layer) : std::nullopt;
    case 6:
        return isEntity || type == "LAYER" ? std::optional(NameKind::linetype) : std::nullopt;
    case 7:
        return isEntity ? std::optional(NameKind::textStyle) : std::nullopt;
    case 2:
        return isOneOf(showBlocks) || type == "BLOCK" ? std::optional(NameKind::block) : std::nullopt;
    case 3:
        if (type == "BLOCK")
            return NameKind::block;
        return isOneOf(dimensioned) ? std::optional(NameKind::dimStyle) : std::nullopt;
    default:
        return {};
    }
}

void appendRenamed(const DxfForm& form, std::string_view type, bool isEntity, std::string_view bytes,
                   const NewName& newName, std::string& out)
{
    DxfCursor cursor(form, bytes);
    DxfTagWriter writer(form, out);
    DxfTag tag;
    const char* copied = bytes.data();
    while (cursor.next(tag)) {
        const auto kind = namedBy(type, isEntity, tag.code);
        const auto name = kind ? newName(*kind, dxfText(tag)) : std::nullopt;
        if (!name)
            continue;
        out.append(copied, tag.start);
        writer.text(tag.code, *name);
        copied = tag.next;
    }
    out.append(copied, bytes.data() + bytes.size());
}
