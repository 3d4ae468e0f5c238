// The AutoLISP functions of the module, by programs that tell what each of their lines gives, and by the manual.

#include <algorithm>
#include <cstring>
#include <fstream>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "ed/Kernel.h"
#include "lisp/drawing/LispSession.h"
#include "platform/CodePage.h"
#include "points/projetDansDessin.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "Answers.h"
#include "LispProgram.h"
#include "supportEssai.h"

using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

/// The module loaded in a host with one empty drawing and a project.
class sessionLisp {
public:
    sessionLisp()
    {
        std::filesystem::remove(supportEssai::fichier("defcodif"));
        Console::instance().setSink([this](const std::wstring& texte) { imprime += texte; });
        DocumentList::instance().create();
        const auto echec = ModuleTable::instance().load(wideFromUtf8(MODULE_ARX));
        EXPECT_FALSE(echec);
        setSrcInfosTopo(nullptr, &projet, 1, 0);
    }
    ~sessionLisp()
    {
        setSrcInfosTopo(nullptr, nullptr, 0, 0);
        DocumentList::instance().closeAll();
        ModuleTable::instance().unloadAll();
        Console::instance().setSink(nullptr);
    }

    sessionLisp(const sessionLisp&) = delete;
    sessionLisp& operator=(const sessionLisp&) = delete;

    LispEnd evaluer(const std::wstring& expression)
    {
        imprime.clear();
        const auto reponse = LispSession::of(*curDoc()).evaluate(expression);
        EXPECT_EQ(reponses.refusals.size(), 0U);
        reponses.clear();
        return {reponse.outcome.failed, reponse.outcome.failed ? reponse.outcome.message : reponse.text, imprime};
    }
    std::string valeur(const std::string& expression) { return utf8FromWide(evaluer(wideFromUtf8(expression)).text); }
    void prevoir(const std::vector<std::wstring>& donnees) { reponses.give(donnees); }

private:
    Kernel noyau;
    projetsTopo projet;
    std::wstring imprime;
    Answers reponses;
};

class FonctionsLisp : public testing::TestWithParam<const char*> {};

TEST_P(FonctionsLisp, giveWhatTheirLinesSay)
{
    sessionLisp session;
    runLispProgram(
        std::string(VELA_SOURCE_DIR "/tests/module/codification/programmes/") + GetParam() + ".lsp",
        [&session](const std::wstring& expression, const std::string&) { return session.evaluer(expression); },
        [&session](const std::vector<std::wstring>& donnees) { session.prevoir(donnees); });
}

/// Each example of the manual that tells its value, in the drawing that the manual begins with.
TEST(FonctionsLispDocumentees, giveWhatTheManualSays)
{
    constexpr const char* demandent[] = {"getsegtype", "choixpoint", "selectionnerCode", "k_getpt", "C:\\\\", "..."};
    std::ifstream manuel(VELA_SOURCE_DIR "/docs/fonctions-lisp.md");
    int exemples = 0;
    for (std::string ligne; std::getline(manuel, ligne);) {
        const auto place = ligne.find("; \u2192 ");
        const bool autrement = std::any_of(std::begin(demandent), std::end(demandent),
                                           [&](const char* mot) { return ligne.find(mot) != std::string::npos; });
        if (!ligne.starts_with("    (") || place == std::string::npos || autrement)
            continue;
        SCOPED_TRACE(ligne);
        sessionLisp session;
        for (const char* point : {"(tpcdaddpt \"1\" '(100 200 12.5))", "(tpcdaddpt \"2\" '(110 200 13.25) 100)",
                                  "(tpcdaddpt \"A3\" '(110 210))"})
            session.valeur(point);
        EXPECT_EQ(session.valeur(ligne.substr(0, place)), ligne.substr(place + std::strlen("; \u2192 ")));
        ++exemples;
    }
    EXPECT_GE(exemples, 18);
}

INSTANTIATE_TEST_SUITE_P(Programmes, FonctionsLisp, testing::Values("arguments", "symboles", "codes", "saisie"),
                         [](const auto& programme) { return std::string(programme.param); });

} // namespace
