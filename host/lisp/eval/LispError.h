#pragma once

#include <exception>
#include <string>

/// What stops an evaluation. It unwinds to the prompt, or to vl-catch-all-apply.
class LispError : public std::exception {
public:
    enum class Kind {
        error,
        quit,       ///< (exit) or (quit)
        interrupted ///< by the user or by a limit of time: vl-catch-all-apply does not hold it up
    };

    explicit LispError(std::wstring what, Kind itsKind = Kind::error) : message(std::move(what)), kind(itsKind) {}
    const char* what() const noexcept override { return "LispError"; }

    std::wstring message;    ///< French, without "; erreur : "
    std::wstring expression; ///< the innermost call under way, as a user would read it; empty outside calls
    bool noticed = false;    ///< the expression is known, and *error* had its turn
    bool handled = false;    ///< the user's own *error* was told: nothing is left to print
    Kind kind;
};
