#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class DxfFile;

/// A drawing whose head cannot be read, with one that can: the variables of the header that are whole, the version that
/// the rest tells when they do not, and the sections whose first lines are lost opened again, by what they hold. What
/// is no part of the drawing is left out.
struct HeadRepair {
    explicit HeadRepair(const DxfFile& file);

    /// Whether the first section has lines before it that make no sense, or the header has some.
    static bool isNeeded(const DxfFile& file);

    std::string text;
    std::vector<std::pair<std::uint64_t, std::string>> told; ///< what was mended, with its place in the file
};
