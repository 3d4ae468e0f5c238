#pragma once

#include <optional>
#include <string>

#include "aced.h"

/// The first argument of acedSSGet, read: "X", "_W", "_:S", "_+.:E:L", null.
struct SelectionCall {
    enum class Mode {
        ask, ///< or, with a point given, what lies under it
        whole,
        editable,
        previous,
        last,
        implied,
        window,
        crossing,
        windowPolygon,
        crossingPolygon,
        fence,
    };
    Mode mode = Mode::ask;
    bool single = false;     ///< :S
    bool everything = false; ///< :E
    bool unlocked = false;   ///< :L
    bool prompts = false;    ///< :$

    /// Nothing for what is not known.
    static std::optional<SelectionCall> read(const ACHAR* how);
};
