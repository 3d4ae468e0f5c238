#include "aideFrancaise.h"
#include "ap/DocumentList.h"
#include "commandes.h"
#include "db/Opening.h"
#include "ed/CommandRunner.h"
#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "lisp/drawing/LispSession.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "script.h"
#include "sessionHote.h"
#include "ui/application/VelaApplication.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

struct choixExecuter {
    std::string script;
    std::string dessin;
    bool strict = false;
};

std::string contenuDe(const std::string& chemin)
{
    std::ifstream fichier(platform::nativePath(wideFromUtf8(chemin)), std::ios::binary);
    std::string contenu{std::istreambuf_iterator<char>(fichier), {}};
    if (!fichier.is_open() || fichier.bad())
        throw erreurProgramme(chemin + " : lecture impossible du fichier.");
    return contenu;
}

std::string messageDe(const LispOutcome& echec)
{
    const std::string message = utf8FromWide(echec.message);
    return echec.expression.empty() ? message : message + ", dans " + utf8FromWide(echec.expression);
}

/// Runs the lines of a script one after the other. What fails throws: file, line and reason.
class executionScript {
public:
    executionScript(sessionHote& laSession, const choixExecuter& leChoix) :
        session(laSession),
        choix(leChoix),
        lignes(lignesDuScript(contenuDe(leChoix.script)))
    {
    }

    void executer()
    {
        for (courante = 0; courante < lignes.size(); ++courante) {
            const ligneScript& ligne = lignes[courante];
            try {
                executerLigne(ligne.texte);
                verifierOuverts();
            } catch (const std::exception& erreur) {
                throw erreurProgramme(lieu(ligne) + " : " + erreur.what());
            }
        }
    }

private:
    /// A command of the program's own.
    struct commandePropre {
        std::string_view nom;
        void (executionScript::*executer)(const std::string& argument);
    };

    std::string lieu(const ligneScript& ligne) const
    {
        return choix.script + ", ligne " + std::to_string(ligne.numero);
    }

    void executerLigne(const std::string& texte)
    {
        static constexpr std::array propres{commandePropre{"OPEN", &executionScript::ouvrir},
                                            commandePropre{"OUVRIR", &executionScript::ouvrir},
                                            commandePropre{"SAVEAS", &executionScript::enregistrerSous},
                                            commandePropre{"QSAVE", &executionScript::enregistrer}};
        if (texte.starts_with('('))
            return appeler(texte);
        const auto coupure = std::min(texte.find_first_of(" \t"), texte.size());
        const auto debut = std::min(texte.find_first_not_of("_."), coupure); // prefixes of global names
        const std::wstring nom = wideFromUtf8(texte.substr(debut, coupure - debut));
        for (const commandePropre& propre : propres)
            if (platform::equalNoCase(nom, wideFromUtf8(propre.nom)))
                return (this->*propre.executer)(texte.substr(coupure));
        commander(texte);
    }

    void appeler(const std::string& texte)
    {
        LispSession& lisp = LispSession::of(dessinCourant());
        const auto [valeur, issue] = lisp.evaluate(wideFromUtf8(texte));
        if (issue.failed)
            throw erreurProgramme(messageDe(issue));
        if (!valeur.empty())
            session.console().ecrire(L"\n" + valeur);
        session.console().terminer();
    }

    void commander(const std::string& nom)
    {
        const CommandOutcome issue = CommandRunner::instance().run(wideFromUtf8(nom));
        session.console().terminer();
        if (!issue.failure.empty())
            throw erreurProgramme(utf8FromWide(issue.failure));
        signalerOuverts(issue.leftOpen);
    }

    void ouvrir(const std::string& argument) { session.ouvrir(nomDeFichier(argument)); }

    void enregistrerSous(const std::string& argument)
    {
        const std::string fichier = nomDeFichier(argument);
        exigerExtensionDxf(fichier);
        session.enregistrer(dessinCourant(), fichier);
    }

    void enregistrer(const std::string& argument)
    {
        if (!argument.empty())
            throw erreurProgramme("QSAVE n'attend rien après son nom.");
        session.enregistrer(dessinCourant());
    }

    static Document& dessinCourant()
    {
        if (Document* const document = DocumentList::instance().current())
            return *document;
        throw erreurProgramme("aucun dessin n'est ouvert.");
    }

    /// Behind the command or, as one types it, on the next line; between quotes or not.
    std::string nomDeFichier(std::string nom)
    {
        nom.erase(0, nom.find_first_not_of(" \t"));
        if (nom.empty() && courante + 1 < lignes.size())
            nom = lignes[++courante].texte;
        if (nom.size() >= 2 && nom.front() == '"' && nom.back() == '"')
            nom = nom.substr(1, nom.size() - 2);
        if (nom.empty())
            throw erreurProgramme("le nom du fichier manque.");
        return nom;
    }

    /// Functions are called outside commands, which look after this themselves.
    void verifierOuverts()
    {
        const std::vector<std::wstring> ouverts = ObjectOpening::openNames();
        ObjectOpening::closeAll();
        signalerOuverts(ouverts);
    }

    void signalerOuverts(const std::vector<std::wstring>& ouverts) const
    {
        if (ouverts.empty())
            return;
        std::string liste;
        for (const std::wstring& nom : ouverts)
            liste += (liste.empty() ? "" : ", ") + utf8FromWide(nom);
        const std::string message = "objets laissés ouverts : " + liste + ".";
        if (choix.strict)
            throw erreurProgramme(message);
        std::cerr << "Attention : " << lieu(lignes[courante]) << " : " << message << '\n';
    }

    sessionHote& session;
    const choixExecuter& choix;
    std::vector<ligneScript> lignes;
    std::size_t courante = 0;
};

void executer(const choixExecuter& choix)
{
    const auto application = VelaApplication::make(VelaApplication::Screen::none); // dialogs of commands
    sessionHote session(std::cout);
    executionScript execution(session, choix);
    if (choix.dessin.empty())
        session.creer();
    else
        session.ouvrir(choix.dessin);
    session.console().terminer();
    execution.executer();
}

} // namespace

void ajouterCommandeExecuter(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("executer", "Exécute les commandes d'un fichier, une par ligne");
    commande.group(groupeCommandes);
    const auto choix = std::make_shared<choixExecuter>();
    commande.add_option("SCRIPT", choix->script, "Fichier de commandes")->type_name("")->required();
    commande.add_option("--dessin", choix->dessin, "Dessin à ouvrir d'abord (sans lui, un dessin neuf)")
        ->type_name("D.dxf");
    commande.add_flag("--strict", choix->strict, "Refuse les objets laissés ouverts par une commande");
    commande.callback([choix] { executer(*choix); });
}
