#include "aideFrancaise.h"
#include "commandes.h"
#include "erreurProgramme.h"
#include "sessionHote.h"
#include "ui/application/VelaApplication.h"
#include "ui/script/ScriptCommand.h"
#include "ui/script/ScriptRunner.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <iostream>
#include <memory>

namespace {

struct choixExecuter {
    std::string script;
    std::string dessin;
    bool strict = false;
    bool echo = false;
};

/// Dialogs that come back whatever is done to them leave no other way out.
[[noreturn]] void abandonner(const QString& echec)
{
    std::cout.flush();
    std::cerr << "vela : " << echec.toStdString() << std::endl;
    std::_Exit(1);
}

ScriptRunner::Options optionsScript(const choixExecuter& choix)
{
    ScriptRunner::Options options;
    options.strict = choix.strict;
    options.echo = choix.echo;
    options.warn = [](const QString& remarque) { std::cerr << "Attention : " << remarque.toStdString() << '\n'; };
    options.giveUp = abandonner;
    return options;
}

void executer(const choixExecuter& choix)
{
    const auto application = VelaApplication::make(VelaApplication::Screen::none);
    sessionHote session(std::cout);
    ScriptRunner::Options options = optionsScript(choix);
    options.commandEnded = [&] { session.console().terminer(); };
    const ScriptCommand commandeScript(options);
    if (choix.dessin.empty())
        session.creer();
    else
        session.ouvrir(choix.dessin);
    session.console().terminer();
    const auto echec = ScriptRunner(options).run(QString::fromStdString(choix.script));
    session.console().terminer();
    if (echec)
        throw erreurProgramme(echec->toStdString());
}

} // namespace

void ajouterCommandeExecuter(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("executer", "Exécute un script : commandes et dialogues");
    commande.group(groupeCommandes);
    const auto choix = std::make_shared<choixExecuter>();
    commande.add_option("SCRIPT", choix->script, "Fichier du script (voir docs/scripts.md)")->type_name("")->required();
    commande.add_option("--dessin", choix->dessin, "Dessin à ouvrir d'abord (sans lui, un dessin neuf)")
        ->type_name("D.dxf");
    commande.add_flag("--strict", choix->strict, "Refuse les objets laissés ouverts par une commande");
    commande.add_flag("--echo", choix->echo, "Montre les invites et les réponses du script");
    commande.callback([choix] { executer(*choix); });
}
