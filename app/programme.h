#pragma once

/// Runs `vela` with the arguments of main: reads them, runs the command they name.
/// @return exit status: 0, or 1 after a message in French on the error output.
int lancerProgramme(int argc, const char* const* argv);
