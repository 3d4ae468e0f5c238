#pragma once

#include <span>

/// What the menus and the tool bar hold, in French, by subject.

/// One item; a row without caption is a separator.
struct MenuItem {
    const char* caption = nullptr;
    /// What it types at the command line, inputs parted by blanks; a leading "'" lets it run while a command waits.
    /// What begins with ":" is done by the window itself.
    const char* input = nullptr;
    const char* shortcut = nullptr;
    const char* icon = nullptr; ///< in the tool bar too, with this picture
};

struct Menu {
    const char* caption;
    std::span<const MenuItem> items;
};

std::span<const Menu> menuTable();
