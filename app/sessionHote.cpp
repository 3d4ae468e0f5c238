#include "sessionHote.h"

#include <array>
#include <filesystem>
#include <optional>

#include "ap/DocumentList.h"
#include "commands/CommandTable.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "points/terrainVoisin.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "erreurProgramme.h"
#include "fichiersDemandes.h"

namespace fs = std::filesystem;

namespace {

// In the order of loading: the main module hands projects over to the survey module.
constexpr std::array modulesTopo{"Vela-ARX2015-64BITS.arx", "VelaPrincipal-ARX2015-64BITS.arx"};
/// Beside the program, or where an installation puts modules.
fs::path fichierModule(const std::string& nom)
{
    const fs::path dossier = fs::read_symlink("/proc/self/exe").parent_path();
    const fs::path aCote = dossier / nom;
    return fs::exists(aCote) ? aCote : (dossier / "../lib/vela" / nom).lexically_normal();
}

void exigerReussite(const std::optional<std::wstring>& refus)
{
    if (refus)
        throw erreurProgramme(platform::utf8FromWide(*refus));
}

/// The module's messages go to a folder that an installation makes on the original platform. Without it they are lost.
void preparerJournal()
{
    std::error_code sansJournal; // the session goes on
    fs::create_directories(platform::nativePath(L"C:\\QUARVEL4\\SUPPORT"), sansJournal);
}

void charger(const fs::path& module)
{
    exigerReussite(ModuleTable::instance().load(platform::wideFromUtf8(module.string())));
}

} // namespace

sessionHote::sessionHote(std::ostream& flux) : lignes(flux)
{
    Console::instance().setSink([this](const std::wstring& texte) { lignes.ecrire(texte); });
    preparerJournal();
    DocumentList::instance(); // modules ask for the documents from their first message on
    registerHostCommands();   // before the modules: theirs are found first
    try {
        for (const char* nom : modulesTopo)
            charger(fichierModule(nom));
        // Under another licence than the rest: who leaves it out has a program without terrain models.
        if (const fs::path terrain = fichierModule(platform::utf8FromWide(moduleTerrain)); fs::exists(terrain))
            charger(terrain);
    } catch (...) {
        fermer();
        throw;
    }
}

sessionHote::~sessionHote()
{
    fermer();
}

void sessionHote::fermer()
{
    ModuleTable::instance().quit();
    DocumentList::instance().closeAll();
    ModuleTable::instance().unloadAll();
    lignes.terminer();
    Console::instance().setSink({});
}

Document& sessionHote::ouvrir(const std::string& chemin)
{
    const DocumentList::Opened ouvert = DocumentList::instance().open(platform::wideFromUtf8(chemin));
    lignes.terminer();
    if (!ouvert.document)
        throw erreurProgramme(platform::utf8FromWide(ouvert.failure));
    return *ouvert.document;
}

Document& sessionHote::creer()
{
    Document& document = DocumentList::instance().create();
    lignes.terminer();
    return document;
}

std::string sessionHote::enregistrer(Document& document, const std::string& chemin)
{
    const bool remplace = fs::exists(cheminNatif(chemin));
    const auto refus = DocumentList::instance().saveAs(document, platform::wideFromUtf8(chemin));
    lignes.terminer();
    exigerReussite(refus);
    return remplace ? fs::path(chemin).replace_extension(".bak").string() : "";
}
