#pragma once

/// The symbol tables whose records stand by name in the tags of objects.
enum class NameKind : unsigned char { block, layer, textStyle, linetype, regApp, dimStyle };
inline constexpr int nameKindCount = 6;
