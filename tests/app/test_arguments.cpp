#include <array>

#include "programme.h"

namespace {

class arguments : public dossierEssai {};

} // namespace

TEST_F(arguments, HelpIsFrench)
{
    for (const char* demande :
         {"--aide", "--help", "-h", "polygonale --aide", "polygonale fermee --aide", "polygonale ouverte --aide",
          "info --help", "convertir -h", "executer --aide", "points importer --aide"}) {
        SCOPED_TRACE(demande);
        const execution run = vela(demande);
        EXPECT_EQ(run.statut, 0);
        EXPECT_EQ(run.erreurs, "");
        EXPECT_NE(run.sortie.find("Utilisation : "), std::string::npos) << run.sortie;
        for (const char* anglais : {"Usage", "REQUIRED", "SUBCOMMAND", "OPTIONS", "Positionals", "Print ", "TEXT",
                                    "INT", "Needs", "Excludes", "display"})
            EXPECT_EQ(run.sortie.find(anglais), std::string::npos) << anglais << "\n" << run.sortie;
    }
}

TEST_F(arguments, VersionStandsAlone)
{
    const execution run = vela("--version");
    EXPECT_EQ(run.statut, 0);
    EXPECT_EQ(run.sortie, "vela " VELA_VERSION "\n");
}

TEST_F(arguments, MistakesAreToldInFrench)
{
    struct cas {
        const char* arguments;
        const char* message;
    };
    for (const cas& ligne : {
             cas{"polygonale", "il faut une commande."},
             cas{"inconnue", "commande inconnue : inconnue."},
             cas{"polygonale carree a.obs", "commande inconnue : carree."},
             cas{"info", "« DESSIN » est obligatoire."},
             cas{"info a.dxf b.dxf", "argument inattendu : b.dxf."},
             cas{"info a.dxf --tout", "argument inattendu : --tout."},
             cas{"info a.dxf --json=oui", "« oui » ne convient pas à l'option --json."},
             cas{"polygonale fermee a.obs --rapport", "l'option --rapport demande une valeur."},
             cas{"polygonale fermee a.obs --placer --code cent", "« cent » ne convient pas à l'option --code."},
             cas{"points importer a.dxf a.xyz --code 0",
                 "« 0 » ne convient pas à l'option --code : un nombre de 1 à 9999."},
             cas{"points lister a.dxf --table A --table B", "--table ne peut être donné qu'une fois."},
             cas{"polygonale fermee a.obs --originale", "l'option --originale ne va pas sans --placer."},
         }) {
        SCOPED_TRACE(ligne.arguments);
        const execution run = vela(ligne.arguments);
        EXPECT_EQ(run.statut, 1);
        EXPECT_EQ(run.sortie, "");
        EXPECT_EQ(run.erreurs, std::string("vela : ") + ligne.message + "\nEssayez « vela --aide ».\n");
    }
}

TEST_F(arguments, AnOutputThatCannotBeWrittenIsAFailure)
{
    copierExemple("chantier.dxf");
    const execution run = vela("info chantier.dxf > /dev/full");
    EXPECT_EQ(run.statut, 1);
}
