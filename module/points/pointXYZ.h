#pragma once

#include <atomic>
#include <cstdint>
#include <ctime>
#include <string>

#include "services/grandeur.h"

/// The next serial number of a point record: one counter for the module, which starts at the time of its first use.
inline std::uint32_t serieSuivante()
{
    static std::atomic<std::uint32_t> compteur{static_cast<std::uint32_t>(std::time(nullptr))};
    return compteur.fetch_add(1, std::memory_order_relaxed);
}

/// A survey point outside any drawing, as point files hold it.
/// x, y, z in drawing units; `inconnu` when not known.
struct pointXYZ {
    int code = 1;
    std::string nom; ///< in Windows-1252, as tables hold it: nearly all names then need no memory of their own
    std::wstring observation;
    double x = inconnu;
    double y = inconnu;
    double z = inconnu;
    std::uint32_t serie = serieSuivante(); ///< of the record; a copy keeps it
    int drapeau = 0;
};
