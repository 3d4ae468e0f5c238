#include "fichiersDemandes.h"

#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "services/lettres.h"

#include "erreurProgramme.h"

namespace fs = std::filesystem;

namespace {

/// Whether two names are those of one file: a file that is there, under any of its names, or one still to be written.
bool memeFichier(const std::string& a, const std::string& b)
{
    if (a.empty() || b.empty())
        return false;
    const fs::path premier = cheminNatif(a), second = cheminNatif(b);
    std::error_code absent;
    return fs::equivalent(premier, second, absent) ||
           fs::absolute(premier).lexically_normal() == fs::absolute(second).lexically_normal();
}

} // namespace

fs::path cheminNatif(const std::string& chemin)
{
    return platform::nativePath(platform::wideFromUtf8(chemin));
}

void refuserMemeFichier(const std::string& resultat, const std::string& source)
{
    if (memeFichier(resultat, source))
        throw erreurProgramme("« " + resultat + " » est un fichier de données : choisissez un autre nom.");
}

void refuserRapportSurDessin(const std::string& rapport, const std::string& dessin)
{
    if (memeFichier(rapport, dessin))
        throw erreurProgramme("le rapport et le dessin ont le même nom, « " + rapport + " ».");
}

void refuserNomDeDessin(const std::string& resultat, const std::string& exemple)
{
    const std::wstring extension = enMinuscules(platform::wideFromUtf8(cheminNatif(resultat).extension().string()));
    if (extension == L".dxf" || extension == L".dwg")
        throw erreurProgramme("« " + resultat + " » est un nom de dessin : donnez une autre extension, « " + exemple +
                              " » par exemple.");
}

void exigerRapportEcrit(bool ecrit, const std::string& rapport)
{
    if (!ecrit)
        throw erreurProgramme(rapport + " : le rapport n'a pas pu être écrit.");
}
