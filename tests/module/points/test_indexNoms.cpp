#include <cmath>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "points/indexNoms.h"

namespace {

/// Numbers padded with zeros, after and before fixed letters: wherever the digits stand, they reach the bits in use.
TEST(IndexNoms, spreadsNamesThatDifferInAFewCharacters)
{
    constexpr int nombre = 10000;
    constexpr std::uint32_t places = 32768; // of the index that holds so many
    const double auHasard = places * (1.0 - std::exp(-double{nombre} / places));
    for (const std::string gabarit : {"0000", "P0000", "P000000", "P0000000", "STA.00000", "0000ABCDE", "00000000"}) {
        SCOPED_TRACE(gabarit);
        const std::size_t fin = gabarit.find_last_of('0') + 1;
        std::set<std::uint32_t> prises;
        for (int i = 0; i < nombre; ++i) {
            const std::string chiffres = std::to_string(i);
            std::string nom = gabarit;
            nom.replace(fin - chiffres.size(), chiffres.size(), chiffres);
            prises.insert(cleNom(nom, {}).hachage() % places);
        }
        EXPECT_GT(static_cast<double>(prises.size()), 0.95 * auHasard);
    }
}

} // namespace
