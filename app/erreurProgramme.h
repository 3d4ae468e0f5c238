#pragma once

#include <stdexcept>

/// Ends the program with status 1. The text is for the user: French, UTF-8, without "vela : " before it.
class erreurProgramme : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
