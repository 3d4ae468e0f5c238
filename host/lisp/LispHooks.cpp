#include "lisp/LispHooks.h"

LispHooks& LispHooks::instance()
{
    static LispHooks hooks;
    return hooks;
}
