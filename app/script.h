#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Scripts: one command a line, as it would be typed. Lines that are blank or begin with ";" are comments.

/// A line that is neither, without the blanks around it.
struct ligneScript {
    std::size_t numero; ///< 1-based
    std::string texte;  ///< UTF-8
};

/// @param contenu UTF-8, with or without a byte order mark, any line ends
std::vector<ligneScript> lignesDuScript(std::string_view contenu);
