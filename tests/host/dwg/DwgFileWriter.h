#pragma once

#include <map>
#include <string>

#include "DwgBits.h"

/// An object of a DWG file of the R2000 version, in the parts that it is written in.
struct DwgObject {
    unsigned type;
    unsigned handle;
    DwgBits extended; ///< extended data, without the closing zero
    DwgBits common;   ///< what all entities, or all other objects, have
    DwgBits data;
    DwgBits handles; ///< of other objects
};

/// Puts objects into a DWG file: its header, its sections, its map of where each object stands, its checksums.
class DwgFileWriter {
public:
    void add(const DwgObject& object);
    /// The file. Holds some 300 objects at most: their places are written as one part.
    std::string bytes(const DwgBits& headerVariables) const;

private:
    std::string objectMap(std::size_t start) const;

    std::string m_objects;
    std::map<unsigned, std::size_t> m_places; // by handle, counted from the first object
};
