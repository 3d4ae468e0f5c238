#include "programme.h"

namespace {

class verifierCas : public dossierEssai {};

} // namespace

TEST_F(verifierCas, WhatIsPublishedIsFoundAgain)
{
    const execution run = vela("verifier");
    EXPECT_EQ(run.statut, 0) << run.sortie << run.erreurs;
    EXPECT_EQ(run.sortie.find("ÉCART"), std::string::npos) << run.sortie;
    for (const char* calcul : {"polygonale-fermee", "polygonale-ouverte", "reseau", "similitude", "visee"})
        EXPECT_NE(run.sortie.find("(" + std::string(calcul) + ")"), std::string::npos) << calcul;
    EXPECT_NE(run.sortie.find("toutes retrouvées."), std::string::npos);
}

TEST_F(verifierCas, WhatDiffersFails)
{
    ecrire("miens.txt", "cas un\nsource moi\ncalcul visee\ndonnee station 0 0\ndonnee reference 0 10\n"
                        "donnee point 10 0\nattendu angle 0.001 100\nattendu distance 0.001 10.002 3\n");
    const execution run = vela("verifier miens.txt");
    EXPECT_EQ(run.statut, 1);
    EXPECT_NE(run.sortie.find("1 cas, 3 valeurs publiées : 2 hors de ce qui est admis."), std::string::npos)
        << run.sortie;
    EXPECT_NE(run.sortie.find("absent"), std::string::npos) << "one value expected more than there are";
}

TEST_F(verifierCas, MistakesAreTold)
{
    const struct {
        const char* texte;
        const char* raison;
    } fautes[] = {
        {"", "aucun cas"},
        {"source moi\n", "ligne 1 : une ligne « cas » vient d'abord."},
        {"cas un\nattendu angle\n", "ligne 2 : il manque un nombre."},
        {"cas un\n\nattendu angle 0.1 1,5\n", "ligne 3 : « 1,5 » n'est pas un nombre."},
        {"cas un\ncouple A 1 2 3\n", "ligne 2 : il manque un nombre."},
        {"cas un\nfait x\n", "ligne 2 : « fait » n'est pas un mot connu."},
        {"cas un\nattendu angle 0 1\ncalcul rien\n", "« calcul rien » n'est pas un calcul connu."},
        {"cas un\nattendu angle 0 1\ncalcul visee\n", "il manque « donnee point »"},
        {"cas un\nattendu x 0 1\ncalcul reseau\nfichier absent.mc\n", "absent.mc : ce réseau n'a pas pu être lu."},
        {"cas un\nattendu x 0 1\ncalcul polygonale-fermee\nfichier absent.obs\n", "n'a pas pu être lue."},
        {"cas un\nattendu x 0 1\ncalcul similitude\ncouple A 1 2 3 4\n", "au moins 2"},
        {"cas un\ncalcul similitude\n", "aucune ligne « attendu »"},
    };
    for (const auto& faute : fautes) {
        SCOPED_TRACE(faute.texte);
        ecrire("fautif.txt", faute.texte);
        const execution run = vela("verifier fautif.txt");
        EXPECT_EQ(run.statut, 1);
        EXPECT_NE(run.erreurs.find(faute.raison), std::string::npos) << run.erreurs;
    }
    EXPECT_NE(vela("verifier absent").erreurs.find("absent : ce fichier n'a pas pu être ouvert."), std::string::npos);
}
