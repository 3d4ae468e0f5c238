#pragma once
#include <functional>

#include "rx/HostSession.h"

/// Set by the window: shows at once what has changed, though the code that changed it goes on. Empty without a window.
struct DisplayHook {
    static DisplayHook& instance() { return HostSession::part<DisplayHook>(); }
    std::function<void()> update;
};
