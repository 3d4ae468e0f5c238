// The AutoLISP functions of the module, by programs with the expected end of each line on the line:
//   expression ; => value as prin1 shows it
//   expression ; >> what it prints, its prompts and answers included
//   expression ; << answers to what the next line asks, between slashes; the expression itself is not evaluated
// The lines of a file are evaluated one after the other in one drawing.

#include <algorithm>
#include <cstring>
#include <deque>
#include <fstream>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "ed/input/EditorInput.h"
#include "ed/Kernel.h"
#include "lisp/drawing/LispSession.h"
#include "platform/CodePage.h"
#include "points/projetDansDessin.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "supportEssai.h"

using platform::utf8FromWide;
using platform::wideFromUtf8;

namespace {

struct ligneProgramme {
    std::string expression, marque, attendu;

    explicit ligneProgramme(const std::string& texte)
    {
        for (const char* candidate : {" ; =>", " ; >>", " ; <<"}) {
            const auto place = texte.rfind(candidate);
            if (place == std::string::npos)
                continue;
            expression = texte.substr(0, place);
            marque = std::string(candidate).substr(3);
            attendu = texte.substr(std::min(place + 6, texte.size()));
        }
    }
};

class reponsesPrevues : public InputSource {
public:
    void prevoir(const std::string& texte)
    {
        reponses.clear();
        for (std::size_t debut = 0; debut <= texte.size();) {
            const auto fin = std::min(texte.find('/', debut), texte.size());
            std::string une = texte.substr(debut, fin - debut);
            une.erase(0, une.find_first_not_of(' '));
            une.erase(une.find_last_not_of(' ') + 1);
            reponses.push_back(une);
            debut = fin + 1;
        }
    }
    InputAnswer answer(const InputRequest&) override
    {
        InputAnswer reponse;
        if (reponses.empty())
            return reponse; // a cancel
        reponse.kind = InputAnswer::Kind::text;
        reponse.text = wideFromUtf8(reponses.front());
        reponses.pop_front();
        return reponse;
    }
    void refused(const InputRequest&, const std::wstring& raison) override { ADD_FAILURE() << utf8FromWide(raison); }

    std::deque<std::string> reponses;
};

std::string sautsMontres(const std::wstring& texte)
{
    std::string montre;
    for (const char c : utf8FromWide(texte))
        montre += c == '\n' ? std::string("\\n") : std::string(1, c);
    return montre;
}

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

    std::string valeur(const std::string& expression)
    {
        const auto reponse = LispSession::of(*curDoc()).evaluate(wideFromUtf8(expression));
        EXPECT_FALSE(reponse.outcome.failed) << utf8FromWide(reponse.outcome.message);
        return utf8FromWide(reponse.text);
    }
    void executer(const ligneProgramme& ligne)
    {
        if (ligne.marque == "<<")
            return reponses.prevoir(ligne.attendu);
        imprime.clear();
        const std::string rendue = valeur(ligne.expression);
        EXPECT_EQ(ligne.marque == "=>" ? rendue : sautsMontres(imprime), ligne.attendu);
    }

private:
    Kernel noyau;
    projetsTopo projet;
    std::wstring imprime;
    reponsesPrevues reponses;
    EditorInput::Source source{reponses};
};

class FonctionsLisp : public testing::TestWithParam<const char*> {};

TEST_P(FonctionsLisp, giveWhatTheirLinesSay)
{
    sessionLisp session;
    std::ifstream programme(std::string(VELA_SOURCE_DIR "/tests/module/codification/programmes/") + GetParam());
    int numero = 0, lignes = 0;
    for (std::string texte; std::getline(programme, texte);) {
        ++numero;
        const ligneProgramme ligne(texte);
        if (texte.empty() || texte.front() == ';')
            continue;
        SCOPED_TRACE(std::string(GetParam()) + ':' + std::to_string(numero) + ": " + texte);
        ASSERT_FALSE(ligne.marque.empty());
        session.executer(ligne);
        ++lignes;
    }
    EXPECT_GT(lignes, 10);
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

INSTANTIATE_TEST_SUITE_P(Programmes, FonctionsLisp, testing::Values("symboles.lsp", "codes.lsp", "saisie.lsp"),
                         [](const auto& programme) {
                             return std::string(programme.param).substr(0, std::strlen(programme.param) - 4);
                         });

} // namespace
