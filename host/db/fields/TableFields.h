#pragma once

#include "db/fields/DxfFields.h"

/// Rows of the symbol tables and their records.
struct DxfFieldsOfSymbolTables {
    static void add(DxfClasses& classes);

private:
    static DxfField layerLinetypeRow();
    static DxfField linetypePatternRow();
};

/// Rows of dictionaries.
struct DxfFieldsOfDictionary {
    static void add(DxfClasses& classes);
};

/// Rows of xrecords: only what stands before their data.
struct DxfFieldsOfXrecord {
    static void add(DxfClasses& classes);
};
