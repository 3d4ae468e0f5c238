#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "db/fields/NameKind.h"
#include "dxf/DxfForm.h"

/// Tags that name records of symbol tables, in the objects that the kernel models and in those it does not. A drawing
/// file refers to these records by name: who renames one, or brings one in under another name, changes the tags.

/// The table that a tag names a record of; nothing for other tags. `type`: name of the object after the group 0.
std::optional<NameKind> namedBy(std::string_view type, bool isEntity, int code);

/// The name to write in place of one that stands in a tag (its bytes); nothing when it stays.
using NewName = std::function<std::optional<std::wstring>(NameKind, std::string_view)>;

/// Appends the tags of an object, with their new names.
void appendRenamed(const DxfForm& form, std::string_view type, bool isEntity, std::string_view bytes,
                   const NewName& newName, std::string& out);
