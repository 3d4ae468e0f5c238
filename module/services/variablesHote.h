#pragma once

#include <string>

#include "gepnt3d.h"

/// The host's system variables, read whole. @return false, with the value as it was, for a variable that is not known
/// or of another type.
bool lireVariable(const wchar_t* nom, std::wstring& valeur);
bool lireVariable(const wchar_t* nom, double& valeur);
bool lireVariable(const wchar_t* nom, int& valeur);
/// A variable of two coordinates leaves z at 0.
bool lireVariable(const wchar_t* nom, AcGePoint3d& valeur);
