#pragma once

/// Puts the host's own commands on the command stack, in group "VELA_HOTE", with their aliases. Called once, before
/// modules are loaded, so that theirs are found first.
void registerHostCommands();
