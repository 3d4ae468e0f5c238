#pragma once

#include "points/numeroteur.h"

/// Names made of prefix, whole number and suffix: S1, S3, S5.
/// The number stays at the limits of 32 bits once it reaches them.
class numeroteurEntier final : public numeroteur {
public:
    numeroteurEntier(std::wstring lePrefixe, int premier, std::wstring leSuffixe, int lIncrement);

    std::wstring nomSuivant() override;
    int serieSuffixeSuivante() override;
    int seriePrefixeSuivante() override;
    /// Adds 1, whatever the increment.
    void avancer() override;
    /// The current number; with `avance` not zero it then grows by 1, whatever the increment.
    virtual int prendreNumero(int avance);

private:
    int courant;
    int increment;
    int depart;
};
