#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "adsdef.h"

/// Where AutoLISP and the command line meet. Each side knows the other through these only; one that is not set means
/// that the other side is not there.
struct LispHooks {
    static LispHooks& instance();

    /// Set by the input system: types the values of a call (command ...) at the command line, as a chain of texts,
    /// numbers, points and names; "" is Enter. Gives what went wrong, in French; empty when all went well.
    /// A command that asks for more waits for the next call; null cancels it.
    std::function<std::wstring(const resbuf* inputs)> command;
    /// Set by the input system: how many commands wait like this, and what ends those that began since there were
    /// `before`, when an evaluation is over: the user gives them the rest, or after a failure they are cancelled.
    std::function<std::size_t()> pendingCommands;
    std::function<void(std::size_t before, bool failed)> settleCommands;

    /// Shows a message until the user has read it. Without it, texts go to the command line.
    std::function<void(const std::wstring& text)> alert;
    /// Set by the commands: asks for a file as they do, in a dialog or at the command line. `extensions` stand with
    /// semicolons between. Nothing when the user gives up.
    std::function<std::optional<std::wstring>(const std::wstring& title, const std::wstring& proposed,
                                              const std::wstring& extensions, bool toSave)>
        chooseFile;

    /// Set by the window: whether the user pressed Escape since it was asked last.
    std::function<bool()> interrupted;

    /// Set by a run without a person, before drawings open: how long an expression may compute. Nothing: without limit.
    std::optional<std::chrono::milliseconds> timeLimit;

    /// Set by the evaluator: the command that a function C:NAME of the current document makes; an empty one when there
    /// is no such function. Running it gives what went wrong, as `command` does.
    std::function<std::function<std::wstring()>(const std::wstring& name)> findCommand;
};
