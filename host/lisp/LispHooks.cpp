#include "lisp/LispHooks.h"

#include "rx/HostSession.h"

LispHooks& LispHooks::instance()
{
    return HostSession::part<LispHooks>();
}
