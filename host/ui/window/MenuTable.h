#pragma once

#include <string>
#include <vector>

/// What menus and tool bars hold, in French, by subject.

/// One item; a row without caption is a separator.
struct MenuItem {
    std::string caption{};
    /// What it types at the command line, inputs parted by blanks; a leading "'" lets it run while a command waits.
    /// What begins with ":" is done by the window itself.
    std::string input{};
    std::string shortcut{};
    std::string picture{}; ///< in the tool bar too, with this picture (ToolIcons.h)
};

struct Menu {
    std::string caption;
    std::vector<MenuItem> items;
};

/// The menus of the host itself. Modules bring theirs: ModuleMenus.h.
const std::vector<Menu>& menuTable();
/// Stands behind those of the modules.
const Menu& helpMenu();
