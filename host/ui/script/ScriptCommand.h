#pragma once

#include "ui/script/ScriptRunner.h"

/// For as long as this lives, the command SCRIPT runs scripts. Within a script it goes on with the lines of another
/// one; at the command line of a window it runs a script once the command line is free.
class ScriptCommand {
public:
    /// @param options of the scripts that it starts itself
    explicit ScriptCommand(ScriptRunner::Options options);
    ~ScriptCommand();
    ScriptCommand(const ScriptCommand&) = delete;
    ScriptCommand& operator=(const ScriptCommand&) = delete;
};
