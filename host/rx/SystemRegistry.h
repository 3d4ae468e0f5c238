#pragma once

#include "rxregsvc.h"

/// Has the registry of every session, from its first use on, hold what `make` gives, which it then owns. Called by
/// static initialisers: the first module looks for the command stack in its first message.
/// @return true, for their sake.
bool registerAtStart(const ACHAR* key, AcRxObject* (*make)());
