#include "traitementReseau.h"

#include <filesystem>

#include "calculs/reseau/compensation.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"

#include "erreurProgramme.h"

namespace fs = std::filesystem;
using platform::utf8FromWide;

namespace {

fs::path cheminNatif(const std::string& chemin)
{
    return platform::nativePath(platform::wideFromUtf8(chemin));
}

std::string phraseLecture(const std::string& fichier, const remarqueLecture& remarque)
{
    return fichier + (remarque.numero > 0 ? ", ligne " + std::to_string(remarque.numero) : "") + " : " +
           utf8FromWide(remarque.phrase);
}

void lire(const demandeReseau& demande, traitementReseau& t)
{
    reseauLu lu = chargerReseau(cheminNatif(demande.fichier));
    if (!lu.lisible)
        throw erreurProgramme(lu.remarques.empty() ? demande.fichier + " : illisible."
                                                   : phraseLecture(demande.fichier, lu.remarques.front()));
    for (const remarqueLecture& remarque : lu.remarques)
        t.avertissements.push_back(phraseLecture(demande.fichier, remarque));
    t.r = std::move(lu.r);
}

optionsCompensation optionsDe(const demandeReseau& demande)
{
    optionsCompensation options;
    options.libre = demande.libre;
    if (demande.robuste == "tukey")
        options.methode = estimateur::tukey;
    else if (demande.robuste == "huber")
        options.methode = estimateur::huber;
    else if (!demande.robuste.empty())
        throw erreurProgramme("--robuste : « " + demande.robuste + " » n'est ni « huber » ni « tukey ».");
    return options;
}

} // namespace

void traiterReseau(const demandeReseau& demande)
{
    traitementReseau t;
    const optionsCompensation options = optionsDe(demande);
    lire(demande, t);
    try {
        t.resultat = compenser(t.r, options);
    } catch (const erreurReseau& faute) {
        throw erreurProgramme(demande.fichier + " : " + utf8FromWide(faute.phrase()));
    }
    if (demande.json)
        afficherJson(demande, t);
    else
        afficherTexte(demande, t);
}
