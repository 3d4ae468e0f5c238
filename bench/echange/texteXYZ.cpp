#include "echange/texteXYZ.h"

#include <cstdio>

std::string texteXYZ(int nombre)
{
    std::string texte;
    char ligne[128];
    for (int i = 0; i < nombre; ++i)
        texte.append(ligne, static_cast<std::size_t>(
                                std::snprintf(ligne, sizeof ligne, "%10d\t%14.6f\t%14.6f\t%14.6f\t%6d\n", i + 1,
                                              1650000.0 + i % 1000 * 1.237, 8180000.0 + i / 1000 * 1.111,
                                              100.0 + i % 77 * 0.01, 1 + i % 20)));
    return texte;
}
