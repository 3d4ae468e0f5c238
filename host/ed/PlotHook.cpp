#include "ed/PlotHook.h"

#include "rx/HostSession.h"

PlotHook& PlotHook::instance()
{
    return HostSession::part<PlotHook>();
}
