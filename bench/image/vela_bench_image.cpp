#include <algorithm>
#include <cstdio>
#include <QImage>
#include <QPainter>

#include <CLI/CLI.hpp>
#include <malloc.h> // malloc_trim

#include "gi/ObjectSnap.h"
#include "gi/Picking.h"
#include "gi/Scene.h"
#include "mesures/mediane.h"
#include "mesures/memoire.h"
#include "mesures/tableauMesures.h"
#include "planchers/planchers.h"
#include "platform/CodePage.h"
#include "ui/application/VelaApplication.h"
#include "ui/render/ScenePainter.h"

#include "dbmain.h"

/// What a person waits for when a large drawing is opened and moved about in.

namespace {

constexpr int largeur = 1600, hauteur = 1000; // pixels

/// Bars, as parts of the time that reading every number of the drawing takes: 0.088 s for 100 000 points where they
/// were set. A picture while panning was allowed 0.1 s there, which still follows the hand.
namespace barres {
constexpr double lecture = 34.0, premiereImage = 5.7, imageMobile = 1.15, curseur = 0.023, accrochage = 0.057,
                 fenetre = 5.7;
}

/// Where most of the drawing is: a stray entity far away would leave everything else in one pixel.
Box2d coeur(Scene& scene)
{
    std::vector<double> x, y;
    scene.visit(scene.extents(), [&](AcDbObjectId, const Box2d& boite) {
        x.push_back(boite.center().x);
        y.push_back(boite.center().y);
        return true;
    });
    std::ranges::sort(x);
    std::ranges::sort(y);
    const std::size_t bord = x.size() / 100;
    return {x[bord], y[bord], x[x.size() - 1 - bord], y[y.size() - 1 - bord]};
}

class banc {
public:
    banc(const std::string& fichier, int passes) : m_passes(passes), m_base(false)
    {
        if (m_base.readDwgFile(platform::wideFromUtf8(fichier).c_str()) != Acad::eOk)
            throw std::runtime_error(platform::utf8FromWide(m_base.lastError()));
        const FichierMappe carte(fichier);
        double somme = 0.0;
        m_plancher = mediane(
            m_passes, [] {}, [&] { somme += parcourirNombres(carte.octets()).somme; });
        std::printf("floor: every number of the drawing %.4f s (sum %g)\n", m_plancher, somme);
    }

    bool mesurer()
    {
        lire();
        for (const double loupe : {1.0, 4.0, 16.0, 64.0, 256.0})
            deplacer(loupe);
        designer();
        return m_tableau.tenu();
    }

private:
    void lire()
    {
        malloc_trim(0);
        const std::size_t avant = memoireOccupee();
        const double lecture = mediane(
            1, [] {}, [&] { m_scene = std::make_unique<Scene>(m_base), m_scene->extents(); });
        m_tableau.rapport("scene, first read: objects decoded", lecture, m_plancher, barres::lecture);
        m_coeur = coeur(*m_scene);
        const double premiere = mediane(
            1, [] {}, [&] { peindre(vue(1.0)); });
        m_tableau.rapport("first picture of the whole", premiere, m_plancher, barres::premiereImage);
        std::printf("memory for both, objects included: %.0f MB\n",
                    static_cast<double>(memoireOccupee() - avant) / 1e6);
    }

    SceneView vue(double loupe) const
    {
        SceneView vue = SceneView::showing(m_coeur, largeur, hauteur);
        vue.pixel /= loupe;
        vue.width /= loupe;
        vue.height /= loupe;
        return vue;
    }

    void peindre(const SceneView& vue)
    {
        QPainter peintre(&m_image);
        PaintStyle style;
        style.ground = Qt::black;
        paintScene(peintre, *m_scene, vue, style);
    }

    /// Each picture a tenth of its width further.
    void deplacer(double loupe)
    {
        SceneView ici = vue(loupe);
        const double pas = ici.width / 10.0;
        const double secondes = mediane(
            m_passes, [&] { ici.center.x += pas; }, [&] { peindre(ici); });
        char nom[64];
        std::snprintf(nom, sizeof nom, "pan, 1/%.0f of the width in view", loupe);
        m_tableau.rapport(nom, secondes, m_plancher, barres::imageMobile);
    }

    void designer()
    {
        SceneView ici = vue(64.0);
        const double rayon = 5.0 * ici.pixel;
        double decalage = 0.0;
        const auto avancer = [&] { decalage += 0.37 * rayon; };
        const auto point = [&] { return AcGePoint2d(ici.center.x + decalage, ici.center.y); };
        m_tableau.rapport("what lies under the cursor",
                          mediane(m_passes, avancer, [&] { hitsAt(*m_scene, point(), rayon); }), m_plancher,
                          barres::curseur);
        constexpr unsigned tous = 1 | 2 | 4 | 8 | 16 | 32 | 64 | 128;
        m_tableau.rapport("object snap, all kinds",
                          mediane(m_passes, avancer, [&] { snapAt(*m_scene, point(), rayon, tous); }), m_plancher,
                          barres::accrochage);
        m_tableau.rapport("crossing box over a quarter of it all",
                          mediane(
                              m_passes, [] {}, [&] { pickBox(*m_scene, vue(2.0).box(), PickExtent::crossing); }),
                          m_plancher, barres::fenetre);
    }

    int m_passes;
    AcDbDatabase m_base;
    std::unique_ptr<Scene> m_scene;
    Box2d m_coeur;
    double m_plancher = 0.0;
    QImage m_image{largeur, hauteur, QImage::Format_RGB32};
    tableauMesures m_tableau{{1}, "image"};
};

} // namespace

int main(int argc, char** argv)
{
    CLI::App programme("Mesure l'affichage d'un dessin : lecture, première image, déplacements, désignation.");
    std::string fichier;
    int passes = 11;
    programme.add_option("DESSIN", fichier, "Dessin DXF, comme ceux de vela_bench_dessin")->required();
    programme.add_option("--runs", passes, "Mesures par ligne")->capture_default_str();
    CLI11_PARSE(programme, argc, argv);
    try {
        const auto application = VelaApplication::make(VelaApplication::Screen::none);
        return banc(fichier, passes).mesurer() ? 0 : 1;
    } catch (const std::exception& erreur) {
        std::fprintf(stderr, "vela_bench_image : %s\n", erreur.what());
        return 2;
    }
}
