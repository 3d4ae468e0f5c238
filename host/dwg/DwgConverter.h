#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

/// Why a DWG drawing could not be converted, in French and UTF-8: "plan.dwg : dessin DWG illisible : ...".
class DwgError : public std::runtime_error {
public:
    DwgError(const std::filesystem::path& drawing, const std::string& reason);
};

/// A drawing converted: the bytes of a DXF file in the DWG's own version, what that means for its user, and what was
/// lost on the way, in French.
struct DwgConversion {
    std::string dxf;
    std::string note;
    std::vector<std::string> losses;
};

/// Converts DWG drawings to DXF in a process of its own: whatever a drawing does to the converter, the program and
/// its other drawings go on. The process is held to a time and a memory limit.
class DwgConverter {
public:
    struct Settings {
        std::string node = "node";    ///< program; one without a slash is looked for in $PATH
        std::filesystem::path folder; ///< that of convert.mjs and its packages
        std::chrono::seconds timeLimit{300};
        /// Writable memory of the process, in bytes. The converter reserves 1 GB to begin with.
        std::uint64_t memoryLimit = std::uint64_t{6} << 30;
    };

    /// $VELA_CONVERTISSEUR, or ../lib/vela/convertisseur from the program's folder.
    static std::filesystem::path installedFolder();

    DwgConverter() : DwgConverter(Settings{.folder = installedFolder()}) {}
    explicit DwgConverter(Settings settings) : m_settings(std::move(settings)) {}

    /// Leaves no file behind. Each call is a process; about half a second for a small drawing.
    /// @throws DwgError; std::system_error when no temporary file can be made.
    DwgConversion convert(const std::filesystem::path& drawing) const;

private:
    Settings m_settings;
};
