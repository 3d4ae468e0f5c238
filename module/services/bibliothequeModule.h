#pragma once

/// A function of a library that stands in the module's folder and is loaded when it is first asked for: what few
/// commands need is not to slow the start of all. Null when the library or the function is not there.
/// @param bibliotheque name without folder
void* fonctionBibliotheque(const char* bibliotheque, const char* fonction);
