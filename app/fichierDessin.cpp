#include "fichierDessin.h"

#include <array>
#include <filesystem>
#include <iostream>

#include "db/DatabaseImpl.h"
#include "platform/CodePage.h"
#include "points/projetDansDessin.h"

#include "erreurProgramme.h"
#include "lignesConsole.h"

void avertirDesProblemes(const AcDbDatabase& dessin)
{
    for (const std::string& probleme : dessin.impl().problems().all())
        avertir(probleme);
}

void exigerExtensionDxf(const std::string& chemin)
{
    const std::string extension = std::filesystem::path(chemin).extension().string();
    const auto lettre = [&extension](std::size_t i) { return static_cast<char>(extension[i] | 0x20); };
    if (extension.size() != 4 || lettre(1) != 'd' || lettre(2) != 'x' || lettre(3) != 'f')
        throw erreurProgramme("« " + chemin + " » : un dessin s'enregistre en DXF, donnez un nom en « .dxf ».");
}

void direAncienDessin(const std::string& ancien)
{
    if (!ancien.empty())
        std::cout << "Le dessin d'avant est gardé : " << ancien << '\n';
}

std::string phrasePointsPlaces(int nombre, const std::string& table)
{
    return std::to_string(nombre) + " points placés dans la table « " + table + " »";
}

projetsTopo& projetDuDessin()
{
    if (!tablesPoints)
        throw erreurProgramme(platform::utf8FromWide(projetAbsent));
    return *tablesPoints;
}

std::string nomVersion(int version)
{
    struct nom {
        int premiere; // the first version of that name
        const char* texte;
    };
    constexpr std::array noms{nom{1032, "2018"}, nom{1027, "2013"}, nom{1024, "2010"},
                              nom{1021, "2007"}, nom{1018, "2004"}, nom{1015, "2000"},
                              nom{1014, "R14"},  nom{1012, "R13"},  nom{1009, "R12"}};
    for (const nom& connu : noms)
        if (version == connu.premiere)
            return connu.texte;
    return version < 1009 ? "avant R12" : "inconnue";
}
