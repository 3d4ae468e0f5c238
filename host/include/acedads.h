#pragma once

#include "adscodes.h"
#include "adsdef.h"

/// The editor's C-style functions: functions callable from AutoLISP, system variables, input from the user, selection
/// sets, drawing on the screen.

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

// ---- files

/// Where a file is: as named, from the current folder, in any letter case. Writes its full path as the system has it,
/// which programs that know nothing of Windows-style paths read too.
/// @param size of `result`, in characters
/// @return RTNORM; RTERROR when there is no such file or its path is longer.
int acedFindFile(const ACHAR* name, ACHAR* result, size_t size);

// ---- asking the user
//
// Points are in the coordinates of the user's coordinate system, which is the world's here; lengths in drawing units;
// angles in radians, counter-clockwise. A null prompt shows a default one; a null `base` is no base point. All answer
//   RTNORM   an answer was given
//   RTCAN    the user cancelled
//   RTNONE   Enter alone: there is no answer
//   RTKWORD  a keyword was typed: acedGetInput tells which
//   RTERROR  the call is wrong (null result, no document); the result is then as it was
// What a user types that makes no sense is refused with a reason, and asked for again.

/// Sets what the next of these functions refuses (RSG_...) and which keywords it takes; the call after it knows nothing
/// of them. acedGetString takes no keywords, acedGetKword needs them.
/// Keywords stand between blanks. Their capitals, which must follow each other, are what has to be typed at least:
/// "LType" or "LTYPE,LT". A lone "_" separates the words in the user's language from the same ones common to all
/// languages, in the same order: a word typed in the user's language, or with "_" in front in the common one, is
/// answered in the common one. A word ending in "_" cannot be abbreviated.
/// @return RTNORM; RTERROR when the two halves of a list are not of the same length.
int acedInitGet(int bits, const ACHAR* keywords);

/// A point, picked or typed: "x,y", "x,y,z", "@dx,dy", "@d<a", "d<a"; "@" is the last point given (LASTPOINT), "*"
/// in front means world coordinates; a length alone is measured from `base` towards the cursor. Without z it has the
/// current elevation. From `base` a line is stretched to the cursor.
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
/// The corner of a box opposite to `base`, which must be there.
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result);
/// A length, typed, or told by one point with `base` or by two.
int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result);
/// An angle, typed in the unit and direction of AUNITS and ANGDIR, or told by points. Counted from ANGBASE.
int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result);
/// The same counted from the east, whatever ANGBASE: what is typed is from ANGBASE and is converted.
int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetReal(const ACHAR* prompt, ads_real* result);
/// -32768 to 32767.
int acedGetInt(const ACHAR* prompt, int* result);
/// A text, which may be empty: Enter alone gives RTNORM and "". With `cronly` it may hold blanks.
/// `result` must have room for 133 characters; what is longer is cut (RTINPUTTRUNCATED).
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result);
/// The same of any length, a new text for the caller (acutDelString).
int acedGetFullString(int cronly, const ACHAR* prompt, ACHAR*& result);
/// One of the keywords of acedInitGet. Room for 133 characters.
int acedGetKword(const ACHAR* prompt, ACHAR* result);
int acedGetFullKword(const ACHAR* prompt, ACHAR*& result);
/// The keyword, or the other text, that ended the last input with RTKWORD; empty when there was none.
/// Room for 133 characters.
int acedGetInput(ACHAR* result);
int acedGetFullInput(ACHAR*& result);

/// Prints a text on the command line.
int acedPrompt(const ACHAR* text);
/// Non-zero when the user pressed Escape since it was asked last.
int acedUsrBrk();

/// The value of an AutoLISP symbol, as a chain for the caller to release; RTNIL for nil. RTERROR outside a document.
int acedGetSym(const ACHAR* name, resbuf** value);
/// Gives a symbol a value. RTERROR for a name that AutoLISP cannot read, or a protected one.
int acedPutSym(const ACHAR* name, const resbuf* value);

// ---- picking entities

/// One entity and the point at which it was picked. RTERROR when nothing was there: the system variable ERRNO is then
/// 7; and for Enter alone: 52. An answer of "Dernier" ("_Last") is the entity drawn last.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);
/// The entity drawn at the place: an attribute, a vertex, an entity within a block. `toWorld` takes its coordinates to
/// the world's: four rows of three, the last one is the shift. `containers` (may be null) receives the references that
/// hold it, innermost first, as a chain for the caller to release; null when there are none.
int acedNEntSel(const ACHAR* prompt, ads_name entity, ads_point point, ads_point toWorld[4], resbuf** containers);
/// The same with a 4 x 4 matrix; with `usePoint` non-zero `point` is the place, and nothing is asked.
int acedNEntSelP(const ACHAR* prompt, ads_name entity, ads_point point, int usePoint, ads_matrix toWorld,
                 resbuf** containers);

// ---- selection sets
//
// A selection set is named by an ads_name until acedSSFree. Entities are in it once each, in the order of joining;
// those erased meanwhile stay counted. At most 512 sets are alive at a time.

/// Makes a selection set. `how`:
///   null  asks the user, or takes the entity at `first`. Typed answers: points, windows, options (see the prompt)
///   "X"   the whole drawing, all layouts     "A"   all that can be edited: no frozen or locked layers
///   "P"   the previous selection             "L"   the entity of the current space drawn last that is visible
///   "I"   what was selected before the command ran
///   "W", "C"      window, crossing box: corners `first` and `second`
///   "WP", "CP", "F"  polygons, fence: `first` is a resbuf chain of points
/// and, for what is asked of the user, "_:S" one selection only, "_:E" everything within the pick box, "_:L" leaves
/// locked layers out, "_:$" `first` is an array of two texts, the prompts of adding and removing; joined: "_+.:E:S".
/// The youngest entity comes first, save where the user picks. `filter` keeps the entities that match all its items:
/// 0 the kind, 8 the layer, and any other code; texts are wildcard patterns, in any case. 100 a class the entity is one
/// of. 67 space, 410 layout. 1001, or -3 and 1001, extended data of an application. -4 operators around items:
/// "<AND" .. "AND>", "<OR" .. "OR>", "<XOR" .. "XOR>" (two), "<NOT" .. "NOT>" (one); before an item a relation:
/// "=", "!=", "<", "<=", ">", ">=", "*" (anything), "&" (some bit), "&=" (all bits); before a point one for each
/// coordinate, as "*,>=,<", the last one for those left out. What an entity leaves out is its default
/// (62: 256, 6: BYLAYER...).
/// @return RTNORM; RTCAN; RTERROR when nothing was found or the call or filter is wrong, `set` is then 0;
///         RTREJ when there are too many sets; RTKWORD.
int acedSSGet(const ACHAR* how, const void* first, const void* second, const resbuf* filter, ads_name set);
/// A set whose entities are an entity's, or another set's with one more: with `entity` null an empty set; with `set`
/// null a new set with the entity; else the entity joins the set. `result` receives the set; it may be `set`.
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
/// RTERROR when it is not in the set.
int acedSSDel(const ads_name entity, const ads_name set);
int acedSSMemb(const ads_name entity, const ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
/// The entity at a place, from 0. RTERROR beyond the end.
int acedSSName(const ads_name set, Adesk::Int32 place, ads_name entity);
int acedSSFree(const ads_name set);
/// What is selected while no command asks, as new sets (RTPICKS) for the caller to free; null when nothing is. The
/// first one is always null here: there are no grips.
int acedSSGetFirst(resbuf** gripSet, resbuf** pickFirstSet);
/// Selects the entities of a set, none for null. `unused` is not looked at.
int acedSSSetFirst(const ads_name set, const ads_name unused);

// ---- the screen. Without a window these draw nothing, and answer the same.

/// A vector drawn over the drawing until it is next drawn anew. Colours 0 to 255; -1 inverts what is below. With
/// `highlight` non-zero it is dashed.
int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight);
/// Several: a chain of points by twos, an RTSHORT before changes the colour (negative: highlighted), each point
/// multiplied by the matrix when it is not null.
int acedGrVecs(const resbuf* vectors, ads_matrix matrix);
/// Writes to the status line (-1), or the coordinates' place (-2); null text restores them.
int acedGrText(int box, const ACHAR* text, int highlight);
/// `mode`: 1 draws an entity anew, 2 hides it, 3 highlights it, 4 ends that. Null for the whole view, which forgets
/// its vectors.
int acedRedraw(const ads_name entity, int mode);
/// One event of input. `track` bit 1: movements count. `type` becomes 2 a key, 3 a point picked, 5 a point moved to;
/// `result` receives an RTSHORT or an RT3DPOINT. RTCAN on Escape.
int acedGrRead(int track, int* type, resbuf* result);
int acedTextScr();
int acedGraphScr();

/// Converts a point, or with `displacement` a vector, between coordinate systems: RTSHORT 0 world, 1 user's, 2 display,
/// 3 paper; RTENAME the one of an entity, RT3DPOINT that of its normal.
int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement, ads_point result);
/// A point snapped: `mode` is a list as "_end,_mid". RTERROR when nothing is there.
int acedOsnap(const ads_point point, const ACHAR* mode, ads_point result);
