#pragma once

#include <string>

#include "gepnt3d.h"

/// Numbers as commands show them, by the drawing's variables of precision (LUPREC, AUPREC) and unit of angles (AUNITS).

std::wstring lengthText(double length);
/// An angle of the drawing, counted from ANGBASE in the sense of ANGDIR; radians, counter-clockwise from the east.
std::wstring directionText(double angle);
/// Of a way in the plane, whatever the drawing's unit: clockwise from north, "123.4568 gr".
std::wstring bearingText(double east, double north);
/// An angle between two directions, radians.
std::wstring angleText(double angle);
/// The unit that AUNITS tells, in radians.
double angleUnit();
/// "X = 1.0000  Y = 2.0000  Z = 0.0000".
std::wstring pointText(const AcGePoint3d& point);
/// "3 objets" or "1 objet": a number with its noun, which takes an s.
std::wstring countText(std::size_t count, const wchar_t* noun);
