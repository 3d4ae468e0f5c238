#pragma once

#include <functional>

/// Set by the window: shows at once what has changed, though the code that changed it goes on. Empty without a window.
struct DisplayHook {
    static DisplayHook& instance()
    {
        static DisplayHook hook;
        return hook;
    }
    std::function<void()> update;
};
