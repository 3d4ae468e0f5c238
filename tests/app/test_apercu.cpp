#include "programme.h"

namespace {

class apercu : public dossierEssai {
protected:
    apercu() { copierExemple("chantier.dxf"); }

    /// Width and height of a .png, from its header: four bytes each, the highest first.
    std::pair<int, int> taillePng(std::string_view nom) const
    {
        const std::string octets = lire(nom);
        const auto nombre = [&](std::size_t debut) {
            int valeur = 0;
            for (std::size_t i = debut; i < debut + 4; ++i)
                valeur = valeur * 256 + static_cast<unsigned char>(octets.at(i));
            return valeur;
        };
        EXPECT_EQ(octets.substr(1, 3), "PNG");
        return {nombre(16), nombre(20)};
    }
};

} // namespace

TEST_F(apercu, troisFormesSansEcran)
{
    for (const auto& [nom, debut] :
         {std::pair("plan.png", "\x89PNG"), std::pair("plan.svg", "<?xml"), std::pair("plan.PDF", "%PDF-")}) {
        const execution run = vela(std::string("apercu chantier.dxf -o ") + nom + " --fond sombre");
        EXPECT_EQ(run.statut, 0) << run.erreurs;
        EXPECT_EQ(run.sortie, std::string(nom) + "\n");
        EXPECT_TRUE(lire(nom).starts_with(debut)) << nom;
    }
    EXPECT_EQ(taillePng("plan.png"), std::pair(1200, 800));
}

TEST_F(apercu, tailleEtFenetre)
{
    EXPECT_EQ(vela("apercu chantier.dxf -o plan.png --taille 300x200 --fenetre 1000,-1900,1040,-1880").statut, 0);
    EXPECT_EQ(taillePng("plan.png"), std::pair(300, 200));
}

TEST_F(apercu, refus)
{
    struct ligne {
        const char *arguments, *message;
    };
    constexpr ligne lignes[] = {
        {"chantier.dxf -o plan.png --taille 300", "« 300 » ne convient pas à l'option --taille"},
        {"chantier.dxf -o plan.png --taille 0x200", "« 0x200 » ne convient pas à l'option --taille"},
        {"chantier.dxf -o plan.png --taille 300x200x", "ne convient pas à l'option --taille"},
        {"chantier.dxf -o plan.png --taille 99999x10", "ne peut pas être faite"},
        {"chantier.dxf -o plan.png --fenetre 1,2,3", "« 1,2,3 » ne convient pas à l'option --fenetre"},
        {"chantier.dxf -o plan.png --fenetre 1,2,1,4", "ses deux coins doivent différer"},
        {"chantier.dxf -o plan.png --fenetre nan,2,1,4", "ses deux coins doivent différer"},
        {"chantier.dxf -o plan.png --fond bleu", "« bleu » ne convient pas à l'option --fond"},
        {"chantier.dxf -o plan.bmp", "plan.bmp : forme d'image inconnue"},
        {"chantier.dxf -o nulle/part.png", "nulle/part.png : écriture impossible"},
        {"absent.dxf -o plan.png", "absent.dxf"},
        {"chantier.dxf", "« --image » est obligatoire"},
    };
    for (const ligne& l : lignes) {
        const execution run = vela(std::string("apercu ") + l.arguments);
        EXPECT_EQ(run.statut, 1) << l.arguments;
        EXPECT_NE(run.erreurs.find(l.message), std::string::npos) << l.arguments << " : " << run.erreurs;
        EXPECT_FALSE(std::filesystem::exists(chemin("plan.png"))) << l.arguments;
    }
}
