#pragma once

#include <string>

/// An empty drawing, as the text of an AC1024 file: the tables, spaces and dictionaries that every drawing has.
const std::string& defaultDrawing();
