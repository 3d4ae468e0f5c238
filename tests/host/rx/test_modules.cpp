#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "moduleTalk.h"
#include "rxregsvc.h"
#include "windows.h"

namespace {

using Log = std::vector<std::string>;

/// Stands for the program: two documents open, each made current while it is visited.
struct Session {
    Log log;
    std::string current = "A";
    std::vector<std::string> documents{"A", "B"};
    /// What a module does at a message, as "Temoin 1".
    std::map<std::string, std::function<void(void*)>> actions;
    std::map<std::string, AcRx::AppRetCode> answers;
};
Session* session = nullptr;

} // namespace

// Found by the modules at run time.
extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode moduleHeard(const char* module,
                                                                               AcRx::AppMsgCode message, void* packet)
{
    const std::string what = std::string(module) + " " + std::to_string(static_cast<int>(message));
    const bool ofDocument = message == AcRx::kLoadDwgMsg || message == AcRx::kUnloadDwgMsg || message == AcRx::kSaveMsg;
    session->log.push_back(ofDocument ? what + " " + session->current : what);
    if (const auto action = session->actions.find(what); action != session->actions.end())
        action->second(packet);
    const auto answer = session->answers.find(what);
    return answer == session->answers.end() ? AcRx::kRetOK : answer->second;
}

namespace {

std::wstring file(const std::string& name)
{
    return platform::wideFromUtf8(std::string(MODULE_FOLDER) + "/" + name);
}

class Modules : public testing::Test {
protected:
    void SetUp() override
    {
        session = &m_session;
        Console::instance().setSink([this](const std::wstring& text) { m_printed += text; });
        table.setDocumentVisitor([this](const std::function<void()>& visit) {
            const std::string before = m_session.current;
            const auto documents = m_session.documents;
            for (const std::string& document : documents) {
                m_session.current = document;
                visit();
            }
            m_session.current = before;
        });
        unlockAtStart("Temoin");
        unlockAtStart("Second");
    }
    void TearDown() override
    {
        m_session.actions.clear();
        table.unloadAll();
        table.setDocumentVisitor(nullptr);
        Console::instance().setSink(nullptr);
        session = nullptr;
    }
    void unlockAtStart(const std::string& module)
    {
        m_session.actions[module + " 1"] = [](void* packet) { acrxDynamicLinker->unlockApplication(packet); };
    }
    void openDocument(const std::string& name)
    {
        m_session.documents.push_back(name);
        m_session.current = name;
        table.tellAll(AcRx::kLoadDwgMsg);
    }
    Log taken() { return std::exchange(m_session.log, {}); }

    Session m_session;
    std::wstring m_printed;
    ModuleTable& table = ModuleTable::instance();
};

TEST_F(Modules, hearOfTheirLifeAndOfEachDocumentInOrder)
{
    ASSERT_EQ(table.load(file("Temoin.arx")), std::nullopt);
    EXPECT_EQ(taken(), (Log{"Temoin 1", "Temoin 3 A", "Temoin 3 B"}));
    EXPECT_EQ(m_session.current, "A");

    openDocument("C");
    table.tellAll(AcRx::kSaveMsg);
    EXPECT_EQ(taken(), (Log{"Temoin 3 C", "Temoin 9 C"}));

    ASSERT_EQ(table.load(file("Second.arx")), std::nullopt);
    taken();
    table.tellAll(AcRx::kSaveMsg);
    table.quit();
    EXPECT_EQ(taken(), (Log{"Temoin 9 C", "Second 9 C", "Temoin 8", "Second 8"}));

    ASSERT_EQ(table.unload(L"TEMOIN.ARX"), std::nullopt);
    EXPECT_EQ(taken(), (Log{"Temoin 4 A", "Temoin 4 B", "Temoin 4 C", "Temoin 2"}));
    table.tellAll(AcRx::kSaveMsg);
    EXPECT_EQ(taken(), (Log{"Second 9 C"}));
}

TEST_F(Modules, areLoadedOnceAndFoundByName)
{
    ASSERT_TRUE(acrxDynamicLinker->loadModule(file("Temoin.arx").c_str(), false));
    taken();
    EXPECT_TRUE(acrxDynamicLinker->loadModule(file("temoin.ARX").c_str(), true));
    EXPECT_EQ(taken(), Log{});
    EXPECT_NE(GetModuleHandleW(L"temoin.arx"), nullptr);
    EXPECT_NE(GetProcAddress(GetModuleHandleW(L"TEMOIN.arx"), "acrxEntryPoint"), nullptr);

    // A bare name is looked for beside the modules that are there.
    EXPECT_EQ(table.load(L"Second.arx"), std::nullopt);
    EXPECT_EQ(table.modules().size(), 2U);

    EXPECT_TRUE(acrxDynamicLinker->unloadModule(L"Temoin.arx"));
    EXPECT_EQ(GetModuleHandleW(L"Temoin.arx"), nullptr);
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(L"Temoin.arx"));
}

TEST_F(Modules, stayUnlessUnlockedAndAtRest)
{
    m_session.actions["Temoin 1"] = [](void* packet) { acrxDynamicLinker->registerAppMDIAware(packet); };
    ASSERT_EQ(table.load(file("Temoin.arx")), std::nullopt);
    EXPECT_TRUE(acrxDynamicLinker->isApplicationLocked(L"Temoin.arx"));
    EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(L"Temoin.arx"));
    taken();
    EXPECT_EQ(table.unload(L"Temoin.arx"), L"Impossible de décharger le module « Temoin.arx » : il est verrouillé.");
    EXPECT_EQ(taken(), Log{});
    EXPECT_FALSE(acrxDynamicLinker->unlockApplication(&m_session)) << "a packet of no module";

    // While its own code runs it cannot go either.
    m_session.actions["Temoin 9"] = [this](void* packet) {
        acrxDynamicLinker->unlockApplication(packet);
        EXPECT_EQ(table.unload(L"Temoin.arx"),
                  L"Impossible de décharger le module « Temoin.arx » : il est en cours d'exécution.");
    };
    table.tellAll(AcRx::kSaveMsg);
    EXPECT_EQ(table.unload(L"Temoin.arx"), std::nullopt);
}

TEST_F(Modules, hearOfADocumentOnceWhateverHappensMeanwhile)
{
    // The first module loads the second as it hears of a new document, which is open by then.
    ASSERT_EQ(table.load(file("Temoin.arx")), std::nullopt);
    taken();
    m_session.actions["Temoin 3"] = [this](void*) { EXPECT_EQ(table.load(file("Second.arx")), std::nullopt); };
    openDocument("C");
    EXPECT_EQ(taken(), (Log{"Temoin 3 C", "Second 1", "Second 3 A", "Second 3 B", "Second 3 C"}));

    // A document opened from a module's first message is one of those it hears of afterwards.
    ASSERT_EQ(table.unload(L"Second.arx"), std::nullopt);
    m_session.actions.erase("Temoin 3");
    m_session.actions["Second 1"] = [this](void* packet) {
        acrxDynamicLinker->unlockApplication(packet);
        openDocument("D");
    };
    taken();
    ASSERT_EQ(table.load(file("Second.arx")), std::nullopt);
    EXPECT_EQ(taken(), (Log{"Second 1", "Temoin 3 D", "Second 3 A", "Second 3 B", "Second 3 C", "Second 3 D"}));

    // The first module sends the second away before it is told.
    m_session.actions["Temoin 9"] = [this](void*) { EXPECT_EQ(table.unload(L"Second.arx"), std::nullopt); };
    taken();
    table.tellAll(AcRx::kSaveMsg);
    EXPECT_EQ(taken(), (Log{"Temoin 9 D", "Second 4 A", "Second 4 B", "Second 4 C", "Second 4 D", "Second 2"}));
}

TEST_F(Modules, thatFailLeaveNothingBehind)
{
    struct Row {
        const char* name;
        const char* file;
        const wchar_t* reason;
    };
    const Row rows[] = {
        {"missing file", "absent.arx", L"fichier introuvable."},
        {"a folder", ".", L"fichier introuvable."},
        {"a shared library without entry point", "SansEntree.arx", L"ce n'est pas un module (acrxEntryPoint manque)."},
        {"built for another release", "Ancien.arx",
         L"il est fait pour la version 17 de l'interface, et l'hôte est à la version 20."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(table.load(file(row.file)),
                  L"Impossible de charger le module « " + file(row.file) + L" » : " + row.reason);
    }
    EXPECT_FALSE(acrxDynamicLinker->loadModule(L"absent.arx", true));
    EXPECT_EQ(m_printed, L"\nImpossible de charger le module « absent.arx » : fichier introuvable.");

    m_session.answers["Temoin 1"] = AcRx::kRetError;
    EXPECT_EQ(table.load(file("Temoin.arx")),
              L"Impossible de charger le module « " + file("Temoin.arx") + L" » : il a refusé de démarrer.");
    EXPECT_EQ(GetModuleHandleW(L"Temoin.arx"), nullptr);
    EXPECT_TRUE(table.modules().empty());
}

TEST_F(Modules, thatThrowAreReportedAndTheOthersStillHear)
{
    ASSERT_EQ(table.load(file("Temoin.arx")), std::nullopt);
    ASSERT_EQ(table.load(file("Second.arx")), std::nullopt);
    taken();
    m_session.actions["Temoin 9"] = [](void*) { throw std::runtime_error("disque plein"); };
    table.tellAll(AcRx::kSaveMsg);
    EXPECT_EQ(taken(), (Log{"Temoin 9 A", "Second 9 A"}));
    EXPECT_EQ(m_printed, L"\nLe module « Temoin.arx » a échoué au message 9 : disque plein.");
    EXPECT_EQ(table.running(), nullptr);
}

TEST_F(Modules, areForgottenByWhatTheyRegisteredAfterTheirLastMessage)
{
    ASSERT_EQ(table.load(file("Temoin.arx")), std::nullopt);
    m_session.actions["Temoin 2"] = [this](void* packet) { EXPECT_EQ(table.running(), packet); };
    static Log* forgotten; // the hook outlives this test
    forgotten = &m_session.log;
    table.whenUnloaded([](const LoadedModule& module) {
        if (forgotten)
            forgotten->push_back("forget " + std::string(module.name.begin(), module.name.end()));
    });
    taken();
    ASSERT_EQ(table.unload(L"Temoin.arx"), std::nullopt);
    EXPECT_EQ(taken(), (Log{"Temoin 4 A", "Temoin 4 B", "Temoin 2", "forget Temoin.arx"}));
    forgotten = nullptr;
}

} // namespace
