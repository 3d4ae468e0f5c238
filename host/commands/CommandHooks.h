#pragma once

#include <functional>
#include <optional>
#include <string>

class AcApDocument;

/// What commands need of windows and of scripts. What is not set is not there: the command then asks at the command
/// line, or says that it cannot be done.
struct CommandHooks {
    static CommandHooks& instance();

    struct FileQuestion {
        std::wstring title;
        std::wstring proposed;   ///< a path or a name; may be empty
        std::wstring extensions; ///< with semicolons between: "dxf;dwg"
        bool toSave = false;     ///< a file that is there is asked about by the dialog itself
    };
    /// Under which name a drawing is kept.
    static FileQuestion drawingToSave(std::wstring proposed)
    {
        return {L"Enregistrer le dessin sous", std::move(proposed), L"dxf", true};
    }
    /// Asks for a file in a dialog, when FILEDIA is 1. Nothing when the user gives up.
    std::function<std::optional<std::wstring>(const FileQuestion&)> chooseFile;

    /// Shows why a drawing could not be opened or saved, where it cannot be missed. Not set while a script answers.
    std::function<void(const std::wstring& reason)> tellFailure;

    /// Runs a script: its lines are typed once the command that called it has ended. Gives what went wrong, in French.
    std::function<std::wstring(const std::wstring& path)> runScript;

    /// Draws a document anew from its entities.
    std::function<void(AcApDocument&)> regenerate;
};
