#include "commandesFichier.h"

#include "accmd.h"
#include "ap/DocumentList.h"
#include "ed/input/EditorInput.h"
#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "platform/CodePage.h"
#include "sessionHote.h"

namespace {

constexpr const wchar_t* groupe = L"VELA_FICHIERS";

sessionHote* sessionCourante = nullptr;

Document& dessinCourant()
{
    if (Document* const document = DocumentList::instance().current())
        return *document;
    throw erreurProgramme("aucun dessin n'est ouvert.");
}

/// Between quotes or not.
std::string demanderNom()
{
    InputRequest demande;
    demande.kind = InputRequest::Kind::string;
    demande.prompt = L"Nom du fichier : ";
    demande.takesBlanks = true;
    std::string nom = platform::utf8FromWide(EditorInput::instance().ask(demande).text);
    if (nom.size() >= 2 && nom.front() == '"' && nom.back() == '"')
        nom = nom.substr(1, nom.size() - 2);
    if (nom.empty())
        throw erreurProgramme("le nom du fichier manque.");
    return nom;
}

void ouvrir()
{
    sessionCourante->ouvrir(demanderNom());
}

void enregistrerSous()
{
    const std::string fichier = demanderNom();
    exigerExtensionDxf(fichier);
    sessionCourante->enregistrer(dessinCourant(), fichier);
}

void enregistrer()
{
    sessionCourante->enregistrer(dessinCourant());
}

} // namespace

commandesFichier::commandesFichier(sessionHote& session)
{
    sessionCourante = &session;
    constexpr auto drapeaux = ACRX_CMD_SESSION | ACRX_CMD_NO_UNDO_MARKER;
    acedRegCmds->addCommand(groupe, L"OPEN", L"OPEN", drapeaux, ouvrir);
    acedRegCmds->addCommand(groupe, L"OUVRIR", L"OUVRIR", drapeaux, ouvrir);
    acedRegCmds->addCommand(groupe, L"SAVEAS", L"SAVEAS", drapeaux, enregistrerSous);
    acedRegCmds->addCommand(groupe, L"QSAVE", L"QSAVE", drapeaux, enregistrer);
}

commandesFichier::~commandesFichier()
{
    acedRegCmds->removeGroup(groupe);
    sessionCourante = nullptr;
}
