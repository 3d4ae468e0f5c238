#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "ap/DocumentList.h"
#include "commands/CommandHooks.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "rx/Console.h"
#include "ui/application/VelaApplication.h"
#include "ui/window/Autosave.h"
#include "ui/window/DrawingFiles.h"
#include "ui/window/DrawingRecovery.h"
#include "ui/window/MainWindow.h"

#include "aideFrancaise.h"
#include "commandes.h"
#include "erreurProgramme.h"
#include "sessionHote.h"
#include "tablesDuProjet.h"

namespace fs = std::filesystem;

namespace {

/// Qt would end the program without a word that a user understands.
void exigerEcran()
{
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        throw erreurProgramme("il n'y a pas d'écran ici pour ouvrir une fenêtre ; « vela --aide » dit ce qui se fait "
                              "sans elle.");
}

/// What is neither a file nor called like a drawing was meant as a command.
void refuserCommandesInconnues(const std::vector<std::string>& dessins)
{
    for (const std::string& dessin : dessins)
        if (!fs::path(dessin).has_extension() && !fs::exists(platform::nativePath(platform::wideFromUtf8(dessin))))
            throw erreurProgramme(commandeInconnue(dessin) + essayezAide);
}

void ouvrirDessins(MainWindow& fenetre, const std::vector<std::string>& dessins)
{
    for (const std::string& dessin : dessins)
        fenetre.files().open(QString::fromStdString(dessin));
    offerRecovery(fenetre, fenetre.autosave());
    if (DocumentList::instance().documents().empty())
        DocumentList::instance().create();
}

struct choixFenetre {
    std::vector<std::string> dessins;
    std::string script;
};

void ouvrirFenetre(const choixFenetre& choix)
{
    refuserCommandesInconnues(choix.dessins);
    exigerEcran();
    const auto application = VelaApplication::make(VelaApplication::Screen::user);
    QApplication::setApplicationVersion(QStringLiteral(VELA_VERSION));
    std::ostringstream debut; // what modules say before there is a window
    sessionHote session(debut);
    tablesDuProjet points;
    MainWindow fenetre(&points);
    Console::instance().print(platform::wideFromUtf8(debut.str()));
    fenetre.show();
    ouvrirDessins(fenetre, choix.dessins);
    if (!choix.script.empty())
        if (const auto echec = CommandHooks::instance().runScript(platform::wideFromUtf8(choix.script)); !echec.empty())
            Console::instance().print(L"\n" + echec);
    fenetre.work();
}

} // namespace

void ajouterFenetre(CLI::App& programme)
{
    const auto choix = std::make_shared<choixFenetre>();
    programme
        .add_option("DESSIN", choix->dessins, "Dessins à ouvrir dans la fenêtre, quand aucune commande n'est donnée")
        ->type_name("");
    programme.add_option("--script", choix->script, "Script à exécuter d'abord dans la fenêtre")->type_name("S.scr");
    programme.callback([&programme, choix] {
        if (programme.get_subcommands().empty())
            ouvrirFenetre(*choix);
    });
}
