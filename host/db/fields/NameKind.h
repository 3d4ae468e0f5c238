#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

/// The symbol tables whose records stand by name in the tags of objects.
enum class NameKind : unsigned char { block, layer, textStyle, linetype, regApp, dimStyle };
inline constexpr std::array nameKinds{NameKind::block,    NameKind::layer,  NameKind::textStyle,
                                      NameKind::linetype, NameKind::regApp, NameKind::dimStyle};

/// How drawing files call a table, and each of its records.
constexpr const char* tableName(NameKind kind)
{
    constexpr std::array<const char*, nameKinds.size()> names{"BLOCK_RECORD", "LAYER", "STYLE",
                                                              "LTYPE",        "APPID", "DIMSTYLE"};
    return names[static_cast<std::size_t>(kind)];
}

/// Nothing for another name. Capitals count.
constexpr std::optional<NameKind> tableNamed(std::string_view name)
{
    for (const NameKind kind : nameKinds)
        if (name == tableName(kind))
            return kind;
    return std::nullopt;
}
