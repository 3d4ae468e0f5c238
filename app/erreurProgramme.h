#pragma once

#include <stdexcept>

/// Behind what a wrong command line is refused with.
inline constexpr char essayezAide[] = ".\nEssayez « vela --aide ».";

/// Ends the program with status 1. The text is for the user: French, UTF-8, without "vela : " before it.
class erreurProgramme : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
