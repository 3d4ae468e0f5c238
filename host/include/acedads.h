#pragma once

#include "adscodes.h"
#include "adsdef.h"

/// The editor's C-style functions: functions callable from AutoLISP, system variables.

// ---- functions defined by a module

/// Defines in the current document a function callable from AutoLISP, as `name` in any letter case. When it is called,
/// the module receives kInvkSubrMsg and acedGetFunCode gives `code` (0 to 32767). A name "C:XXX" makes XXX a command.
/// Only a module may define, in a message or a command of its own. A name defined again changes hands.
/// @return RTNORM; RTERROR for a bad code or a name that AutoLISP cannot read.
int acedDefun(const ACHAR* name, short code);
/// @return RTNORM; RTERROR when the module did not define the name with that code in the current document.
int acedUndef(const ACHAR* name, short code);

// ---- inside such a call; outside one they answer RTERROR (acedGetArgs: null)

/// Code of the function called.
int acedGetFunCode();
/// The arguments, as a chain for the caller to release; null when there are none. Lists stand between RTLB and RTLE;
/// RTDOTE before the last item makes it what follows the dot.
resbuf* acedGetArgs();

// Each of these sets the value that the call gives; the last one counts. Without any the value is nil.

int acedRetVoid();
int acedRetNil();
int acedRetT();
int acedRetInt(int value);
int acedRetReal(ads_real value);
int acedRetStr(const ACHAR* value);
int acedRetPoint(const ads_point value);
/// `type` is RTENAME or RTPICKS.
int acedRetName(const ads_name value, int type);
/// A list of the chain's items; items between RTLB and RTLE make a list inside it. The chain stays the caller's;
/// null gives nil.
int acedRetList(const resbuf* chain);
/// The value of one result buffer, or of a chain from RTLB to its RTLE, as it stands.
int acedRetVal(const resbuf* value);

// ---- system variables

/// Reads a system variable of the session or of the current document. Letter case does not count.
/// Types: RTSHORT, RTREAL, RTSTR (a new text for the caller: acutDelString), RTPOINT, RT3DPOINT.
/// @return RTNORM; RTERROR for a name that is not known, or with no document to ask.
int acedGetVar(const ACHAR* name, resbuf* result);
/// @return RTNORM; RTERROR for a name not known, one that cannot be changed, a value of another type or out of range.
/// An integer is taken where a real is expected.
int acedSetVar(const ACHAR* name, const resbuf* value);
