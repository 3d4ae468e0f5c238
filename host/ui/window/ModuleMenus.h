#pragma once

#include <optional>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

#include "ui/window/MenuTable.h"

/// The menus that a module brings: a UTF-8 text of lines.
///   # comment
///   [Menu title]               begins a menu; entries follow
///   caption | command          an entry: what it shows, what it types at the command line
///   caption | command | picture  the same, in the module's tool bar too (ToolIcons.h)
///   -                          a separator
struct ModuleMenus {
    std::vector<Menu> menus;
    QStringList faults; ///< lines that were left out, in French: file, line, reason
};

/// @param fileName what faults call it
ModuleMenus readModuleMenus(const QByteArray& text, const QString& fileName);

/// Those of the file that lies beside the module, under its name with ".menu" in place of its extension; nothing when
/// there is none.
std::optional<ModuleMenus> menusOfModule(const QString& modulePath);
