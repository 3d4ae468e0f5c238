#pragma once

#include <string>

class AcDbEntity;

/// French name of a kind of entity: "Ligne"; that of its class for a kind of another program.
std::wstring kindName(const AcDbEntity& entity);
