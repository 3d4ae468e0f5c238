#pragma once

#include "adsdef.h"

/// Commands run from code.

/// Types inputs at the command line and returns when the command has ended: pairs of a type and a value as
/// acutBuildList takes them, ended by 0 or RTNONE. Texts are what a user would type, "" is Enter; numbers, points,
/// angles, entity names and selection sets (RTENAME, RTPICKS) are given as they are. Several commands may follow each
/// other.
/// @return RTNORM; RTERROR when a name is not known or an input was refused, or the inputs end before the command: it
///         is cancelled then; RTCAN when it was cancelled otherwise.
int acedCommandS(int type, ...);
/// The same with a chain; null cancels what runs.
int acedCmdS(const resbuf* inputs);
