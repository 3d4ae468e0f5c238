#pragma once

#include <string>

class AcDbEntity;

/// One line that says what an entity is, for tests to compare: "LINE 0,0,0 10,0,0 calque=0". Numbers have four decimals
/// at most, without zeros at their end; angles are degrees.
std::string entityText(const AcDbEntity& entity);
