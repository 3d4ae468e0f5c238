#include <gtest/gtest.h>

#include "sol/triangulation.h"
#include "sol/volumesTerrain.h"

#include "solAleatoire.h"

namespace {

/// Corners of a rectangle under the plane z = z0 + pente x, x counted from `lambert(0, 0)`.
maillageTerrain plan(double x0, double y0, double x1, double y1, double z0, double pente)
{
    semisTerrain semis;
    for (const auto& [x, y] : {std::pair{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}})
        semis.points.push_back({lambert(x, y), z0 + pente * x});
    return trianguler(semis).maillage;
}

TEST(Volumes, knownSolids)
{
    // A ramp from 0 to 10 over 10 x 4, against the plane 5: two wedges of 5 x 5 / 2 x 4 = 50.
    const volumesTerrain v = volumesSousPlan(plan(0, 0, 10, 4, 0.0, 1.0), 5.0);
    EXPECT_NEAR(v.deblai, 50.0, 1e-9);
    EXPECT_NEAR(v.remblai, 50.0, 1e-9);
    EXPECT_NEAR(v.aireDeblai, 20.0, 1e-9);
    EXPECT_NEAR(v.aireRemblai, 20.0, 1e-9);
    EXPECT_NEAR(volumesSousPlan(plan(0, 0, 10, 4, 3.0, 0.0), 3.0).aireNulle, 40.0, 1e-9);
}

struct paire {
    const char* nom;
    double x0, y0, x1, y1; // the other ground, at 0 everywhere; this one is the ramp x - 5 over 10 x 4
    double deblai, remblai;
};

TEST(Volumes, twoGroundsWhereBothAre)
{
    const maillageTerrain rampe = plan(0, 0, 10, 4, -5.0, 1.0);
    for (const paire& p :
         {paire{"the same ground", 0, 0, 10, 4, 50, 50}, paire{"much larger", -500, -700, 900, 800, 50, 50},
          paire{"within", 6, 1, 8, 2, 4, 0}, paire{"a corner", 8, 2, 30, 30, 16, 0},
          paire{"across, no vertex inside", 2, -50, 4, 50, 0, 16}, paire{"beside", 11, 0, 20, 4, 0, 0}}) {
        SCOPED_TRACE(p.nom);
        const maillageTerrain autre = plan(p.x0, p.y0, p.x1, p.y1, 0.0, 0.0);
        const volumesTerrain v = volumesEntre(rampe, autre), inverse = volumesEntre(autre, rampe);
        EXPECT_NEAR(v.deblai, p.deblai, 1e-8);
        EXPECT_NEAR(v.remblai, p.remblai, 1e-8);
        EXPECT_NEAR(inverse.deblai, p.remblai, 1e-8);
        EXPECT_NEAR(inverse.remblai, p.deblai, 1e-8);
    }
}

TEST(Volumes, randomGroundsAgainstThemselvesRaised)
{
    for (unsigned graine = 1; graine <= 4; ++graine) {
        const semisTerrain semis = semisAleatoire(500, graine);
        const maillageTerrain sol = trianguler(semis).maillage;
        const double aire = volumesSousPlan(sol, 0.0).aire();
        semisTerrain releve = semis;
        for (sommetSol& s : releve.points)
            s.z += 2.0;
        const volumesTerrain v = volumesEntre(trianguler(releve).maillage, sol);
        EXPECT_NEAR(v.deblai, 2.0 * aire, 1e-6 * aire);
        EXPECT_NEAR(v.remblai, 0.0, 1e-6 * aire);
        // Against another ground: what one has more than the other, whatever lies between.
        const maillageTerrain autre = trianguler(semisAleatoire(300, graine + 50, 100.0)).maillage;
        const maillageTerrain base = plan(-1, -1, 101, 101, 90.0, 0.0);
        const volumesTerrain deux = volumesEntre(sol, autre);
        EXPECT_GT(deux.aire(), 8000.0);
        EXPECT_NEAR(volumesEntre(autre, sol).deblai, deux.remblai, 1e-6 * aire);
        EXPECT_NEAR(volumesEntre(sol, base).deblai, volumesSousPlan(sol, 90.0).deblai, 1e-6 * aire);
    }
}

} // namespace
