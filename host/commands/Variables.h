#pragma once

#include <utility>
#include <variant>

#include "ed/SystemVariables.h"

/// A system variable of the current document; a command that reads one knows its type.
template <class Value>
Value variable(const wchar_t* name)
{
    return std::get<Value>(SystemVariables::instance().value(name).value());
}

template <class Value>
void setVariable(const wchar_t* name, Value value)
{
    SystemVariables::instance().assign(name, VariableValue(std::move(value)));
}
