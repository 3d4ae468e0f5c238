#include "ed/PlotHook.h"

PlotHook& PlotHook::instance()
{
    static PlotHook hook;
    return hook;
}
