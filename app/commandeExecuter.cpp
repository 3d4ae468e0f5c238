#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "lisp/LispHooks.h"
#include "ui/application/VelaApplication.h"
#include "ui/script/ScriptCommand.h"
#include "ui/script/ScriptRunner.h"

#include "aideFrancaise.h"
#include "commandes.h"
#include "erreurProgramme.h"
#include "executionParDessin.h"
#include "fichierDessin.h"
#include "lignesConsole.h"
#include "sessionHote.h"

namespace {

struct choixExecuter {
    std::string script;
    std::vector<std::string> dessins;
    std::vector<std::string> suivants; ///< without the option before them
    bool strict = false;
    bool echo = false;
    int limite = 600; // seconds; the longest honest loop over a large survey takes some
};

volatile std::sig_atomic_t arretDemande = 0;

bool estArrete()
{
    return arretDemande != 0;
}

/// Nobody is there to press Escape: Ctrl+C stops a loop of AutoLISP, and so does the time it takes.
void surveillerBoucles(int limite)
{
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, [](int recu) {
            arretDemande = 1;
            std::signal(recu, SIG_DFL); // a second one ends the program
        });
    LispHooks::instance().interrupted = estArrete;
    LispHooks::instance().timeLimit = std::chrono::seconds(limite);
}

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
    options.warn = [](const QString& remarque) { avertir(remarque.toStdString()); };
    options.interrupted = estArrete;
    options.giveUp = abandonner;
    return options;
}

void executer(const choixExecuter& choix)
{
    const auto application = VelaApplication::make(VelaApplication::Screen::none);
    if (choix.limite <= 0)
        throw erreurProgramme("--limite : une durée en secondes est attendue, au moins 1.");
    surveillerBoucles(choix.limite);
    sessionHote session(std::cout);
    ScriptRunner::Options options = optionsScript(choix);
    options.commandEnded = [&] { session.console().terminer(); };
    const ScriptCommand commandeScript(options);
    if (choix.dessins.empty())
        session.creer();
    else
        avertirDesProblemes(*session.ouvrir(choix.dessins.front()).database());
    const auto echec = ScriptRunner(options).run(QString::fromStdString(choix.script));
    session.console().terminer();
    if (echec)
        throw erreurProgramme(echec->toStdString());
}

void executerPourChacun(const choixExecuter& choix)
{
    std::vector<std::string> arguments{"executer", choix.script, "--limite", std::to_string(choix.limite)};
    if (choix.strict)
        arguments.emplace_back("--strict");
    if (choix.echo)
        arguments.emplace_back("--echo");
    const std::string entree =
        choix.script == "-" ? std::string(std::istreambuf_iterator<char>(std::cin), {}) : std::string();
    executerParDessin(arguments, choix.dessins, entree);
}

} // namespace

void ajouterCommandeExecuter(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("executer", "Exécute un script : commandes et dialogues");
    commande.group(groupeCommandes);
    const auto choix = std::make_shared<choixExecuter>();
    commande.add_option("SCRIPT", choix->script, "Fichier du script, - pour l'entrée standard (docs/scripts.md)")
        ->type_name("")
        ->required();
    commande
        .add_option("--dessin", choix->dessins,
                    "Dessins à ouvrir d'abord, chacun à son tour (sans eux, un dessin neuf)")
        ->type_name("D.dxf")
        ->allow_extra_args(false);
    commande
        .add_option("DESSIN", choix->suivants,
                    "Autres dessins, après ceux de --dessin : « --dessin *.dxf » les dit tous")
        ->type_name("");
    commande.add_flag("--strict", choix->strict, "Refuse les objets laissés ouverts par une commande");
    commande.add_flag("--echo", choix->echo, "Montre les invites et les réponses du script");
    commande.add_option("--limite", choix->limite, "Calcul le plus long d'une expression AutoLISP, en secondes (600)")
        ->type_name("S");
    commande.callback([choix] {
        choix->dessins.insert(choix->dessins.end(), choix->suivants.begin(), choix->suivants.end());
        choix->dessins.size() > 1 ? executerPourChacun(*choix) : executer(*choix);
    });
}
