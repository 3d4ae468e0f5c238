#pragma once

#include <string>
#include <utility>

/// Makes point names one after the other: a prefix, something that advances, a suffix.
/// The order of the virtual operations is part of the interface between modules; generators are not destroyed through
/// this class.
class numeroteur {
public:
    numeroteur(const numeroteur&) = delete;
    numeroteur& operator=(const numeroteur&) = delete;

    /// The name that is due; the next call gives the following one.
    virtual std::wstring nomSuivant() = 0;
    /// Begins a new series with the next suffix (prefix): A, B, ... Z, AA. @return the number it begins with.
    virtual int serieSuffixeSuivante();
    virtual int seriePrefixeSuivante();
    virtual void avancer() = 0;

protected:
    numeroteur(std::wstring lePrefixe, std::wstring leSuffixe) :
        prefixe(std::move(lePrefixe)),
        suffixe(std::move(leSuffixe))
    {
    }
    ~numeroteur() = default;

    std::wstring prefixe;
    std::wstring suffixe;
};

/// The text after `texte` in the sequence of letters: "" gives A, A gives B, Z gives AA, AZ gives BA.
/// Only capital Z carries; any other last character is raised by one character code ("A9" gives "A:").
std::wstring lettresSuivantes(std::wstring texte);
