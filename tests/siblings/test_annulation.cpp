// Random chains of what users, AutoLISP and siblings do to the points of a drawing, with undo and redo among it. After
// each step: a state of the drawing that was met before has the tables it had then; symbols show their points; what
// would be stored is what the tables hold.
//
// VELA_ANNULATION_PAS and VELA_ANNULATION_GRAINE set the number of steps and the seed.

#include <cmath>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "codification/editionPoint.h"
#include "commands/CommandTable.h"
#include "db/DatabaseImpl.h"
#include "db/UndoTrial.h"
#include "ed/input/CommandLine.h"
#include "ed/input/EditorInput.h"
#include "ed/Kernel.h"
#include "frame/fonctionsLisp.h"
#include "platform/CodePage.h"
#include "points/projetDansDessin.h"
#include "rx/Console.h"
#include "rx/ModuleTable.h"

#include "dbents.h"
#include "moduleTalk.h"
#include "suiviDessins.h"
#include "supportEssai.h"

/// The test module stands for the survey module, whose functions are in this program.
AcRx::AppRetCode moduleHeard(const char*, AcRx::AppMsgCode message, void* packet)
{
    if (message == AcRx::kInitAppMsg)
        acrxDynamicLinker->unlockApplication(packet);
    else if (message == AcRx::kLoadDwgMsg)
        definirFonctionsLisp();
    else if (message == AcRx::kUnloadDwgMsg)
        oublierFonctionsLisp();
    else if (message == AcRx::kInvkSubrMsg)
        appelerFonctionLisp();
    else if (message == AcRx::kSaveMsg)
        enregistrerInfosTopo();
    return AcRx::kRetOK;
}

namespace {

std::function<void()> corpsCommande; // of the command EDITION

class reponses : public InputSource {
public:
    InputAnswer answer(const InputRequest&) override
    {
        InputAnswer reponse;
        if (textes.empty())
            return reponse; // a cancel
        reponse.kind = InputAnswer::Kind::text;
        reponse.text = textes.front();
        textes.pop_front();
        return reponse;
    }
    void refused(const InputRequest&, const std::wstring&) override { textes.clear(); }
    bool isEchoed() const override { return false; }

    std::deque<std::wstring> textes;
};

long long variableEntiere(const char* nom, long long sinon)
{
    const char* const valeur = std::getenv(nom);
    return valeur ? std::atoll(valeur) : sinon;
}

void decrire(std::ostream& sortie, const pointDuDessin& p)
{
    sortie << p.getNomPoint() << ' ' << p.getCode() << ' ' << p.getX() << ' ' << p.getY() << ' ' << p.getZ() << ' ';
}

/// Every table with its points, to the last digit; entities by their place in the drawing's memory.
std::string contenu(const projetsTopo& projet, bool entites)
{
    std::ostringstream sortie;
    sortie.precision(17);
    for (int i = 0; i < projet.nbTables(); ++i) {
        const listePointsDuDessin& table = *projet.getTable(i);
        sortie << '[' << platform::utf8FromWide(table.getNomTable().GetString()) << "]\n";
        for (int j = 0; j < table.nbPoint(); ++j) {
            const pointDuDessin& p = *table.getData(j);
            decrire(sortie, p);
            const bool vivante = !p.getId().isNull() && !p.getId().isErased();
            sortie << (entites ? p.getId().asOldId() : vivante) << '\n';
        }
    }
    return sortie.str();
}

class AnnulationTest : public testing::Test {
protected:
    using texteLisp = std::wstring;

    void SetUp() override
    {
        graine = static_cast<unsigned>(variableEntiere("VELA_ANNULATION_GRAINE", std::random_device()()));
        alea.seed(graine);
        std::printf("seed %u\n", graine);
        Console::instance().setSink([](const std::wstring&) {});
        registerHostCommands();
        ASSERT_FALSE(ModuleTable::instance().load(platform::wideFromUtf8(TEST_MODULE)));
        acedRegCmds->addCommand(L"ESSAI", L"EDITION", L"EDITION", ACRX_CMD_MODAL, [] { corpsCommande(); });
        suivi = std::make_unique<suiviDessins>();
        for (int i = 0; i < 2; ++i)
            DocumentList::instance().create();
    }
    void TearDown() override
    {
        DocumentList::instance().closeAll();
        suivi = nullptr;
        acedRegCmds->removeGroup(L"ESSAI");
        ModuleTable::instance().unloadAll();
        Console::instance().setSink(nullptr);
        std::error_code sansSuite;
        std::filesystem::remove_all(dossier, sansSuite);
    }

    // ---- chance

    int hasard(int n) { return static_cast<int>(alea() % static_cast<unsigned>(n)); }
    std::wstring nombre() { return std::to_wstring(hasard(40)); }
    std::wstring nom() { return L"P" + std::to_wstring(hasard(30)); }
    std::wstring lieu() { return L"(list " + nombre() + L".0 " + nombre() + L".5 " + nombre() + L".25)"; }
    listePointsDuDessin& table() { return *tablesPoints->currTable(); }
    const listePointsDuDessin& lue() { return table(); }
    /// Of a point of the current table, -1 when there is none.
    int position() { return lue().nbPoint() > 0 ? hasard(lue().nbPoint()) : -1; }

    // ---- what is done

    void taper(const std::wstring& ligne)
    {
        constexpr std::wstring_view entre = L" | ";
        source.textes.clear();
        for (std::size_t debut = 0, fin = 0; fin != std::wstring::npos; debut = fin + entre.size()) {
            fin = ligne.find(entre, debut);
            source.textes.push_back(ligne.substr(debut, fin == std::wstring::npos ? fin : fin - debut));
        }
        const EditorInput::Source pile(source);
        while (!source.textes.empty()) {
            CommandOutcome issue;
            CommandLine::instance().runNext(&issue);
            EXPECT_EQ(issue.leftOpen, std::vector<std::wstring>());
        }
    }
    /// In a command, or as a dialog without one does.
    void modifier(const std::function<void()>& quoi)
    {
        if (hasard(3) == 0)
            return quoi();
        corpsCommande = quoi;
        taper(L"EDITION");
        corpsCommande = [] {}; // Enter calls the last command again
    }
    std::wstring ename()
    {
        const int i = position();
        return i < 0 ? L"(list 0 0)"
                     : L"(ename_pt \"" + std::wstring(CString(lue().getData(i)->getNomPoint())) + L"\")";
    }
    pointDuDessin nouveau()
    {
        pointDuDessin p;
        p.setParams(nom().c_str(), AcGePoint3d(hasard(40), hasard(40), hasard(5) == 0 ? 1e38 : hasard(100) / 4.0),
                    1 + hasard(3));
        return p;
    }

    /// As siblings do, who have the array in hand.
    void changerTableau()
    {
        auto& tableau = table().getData();
        if (hasard(6) == 0)
            tableau.RemoveAll();
        else if (!tableau.IsEmpty())
            tableau.RemoveAt(hasard(static_cast<int>(tableau.GetSize())));
        if (hasard(2) == 0)
            tableau.Add(nouveau());
    }

    /// What goes on until the next command is one step: `isole` and `muet` begin one, by a command before them. `muet`:
    /// the tables may have changed without a word; they belong to another state once that is noticed.
    enum class genre { historique, annonce, isole, muet };
    struct acte {
        const char* nom;
        int poids;
        std::function<void()> faire;
        genre sorte = genre::annonce;
    };
    std::vector<acte> actes()
    {
        bool dessine = false;
        const auto si = [this](const std::function<void(int)>& quoi) {
            if (const int i = position(); i >= 0)
                modifier([=] { quoi(i); });
        };
        return {
            {"undo", 22, [this] { taper(L"U"); }, genre::historique},
            {"redo", 14, [this] { taper(L"RETABLIR"); }, genre::historique},
            {"undo several", 2, [this] { taper(L"ANNULER | " + std::to_wstring(1 + hasard(6))); }, genre::historique},
            {"form, new", 8,
             [=, this]() mutable { modifier([&] { enregistrerPoint(table(), -1, nouveau(), dessine); }); }},
            {"form, changed", 8,
             [=, this] {
                 si([this](int i) {
                     bool vu = false;
                     enregistrerPoint(table(), i, nouveau(), vu);
                 });
             }},
            {"form, removed", 5,
             [=, this] { si([this](int i) { table().supprimerPoint(CString(lue().getData(i)->getNomPoint())); }); }},
            {"add_pt", 4, [this] { taper(L"(add_pt \"" + nom() + L"\" " + lieu() + L" 2)"); }},
            {"tpcdaddpt", 4, [this] { taper(L"(tpcdaddpt \"" + nom() + L"\" " + lieu() + L")"); }},
            {"tpcdaddpt, several", 2, [this] { taper(L"(repeat 3 (tpcdaddpt \"" + nom() + L"\" " + lieu() + L"))"); }},
            {"resetcodespts", 2, [this] { taper(L"(resetcodespts " + std::to_wstring(1 + hasard(4)) + L")"); }},
            {"reg_pts", 3, [this] { taper(L"(reg_pts)"); }},
            {"AutoLISP that takes back", 2,
             [this] { taper(L"(progn (add_pt \"" + nom() + L"\" " + lieu() + L") (command \"_U\"))"); }, genre::isole},
            {"erase", 5, [this] { taper(L"EFFACER | " + ename() + L" | "); }},
            {"move", 6, [this] { taper(L"DEPLACER | " + ename() + L" |  | 0,0 | " + nombre() + L"," + nombre()); }},
            {"copy", 3, [this] { taper(L"COPIER | " + ename() + L" |  | 0,0 | " + nombre() + L",1"); }},
            {"dissociate", 1, [this] { taper(L"DISSOCBLOCK | " + ename() + L" | "); }},
            {"line", 3, [this] { taper(L"LIGNE | 0,0 | " + nombre() + L"," + nombre() + L" | "); }},
            {"look", 2, [this] { taper(L"ZOOM | _E"); }},
            {"renumber all", 1, [this] { modifier([this] { table().renumeroter(true); }); }},
            {"number the nameless", 1, [this] { modifier([this] { table().renumeroter(false); }); }},
            {"duplicates", 2, [this] { modifier([this] { table().delDups(); }); }},
            {"all altitudes", 1, [this] { modifier([this] { tablesPoints->decalZ(0.5); }); }},
            {"merged", 1,
             [this] {
                 listePointsDuDessin autre; // its points have no symbol: of several with one, the first follows it
                 for (int i = hasard(5); i >= 0; --i)
                     autre.Ajouter(nouveau());
                 modifier([&] { table().fusionnerAvec(autre); });
             }},
            {"read from the drawing", 1, [this] { modifier([this] { table().updateFromDrawing(); }); }},
            {"new table", 2,
             [this] {
                 if (tablesPoints->nbTables() < 6)
                     modifier([this] { tablesPoints->creerTablePoints(nom().c_str()); });
             }},
            {"table removed", 2,
             [this] { modifier([this] { tablesPoints->removeTablePoints(hasard(tablesPoints->nbTables())); }); }},
            {"table named", 2, [this] { modifier([this] { table().setNomTable(nom().c_str()); }); }, genre::muet},
            {"other current table", 4, [this] { tablesPoints->setCourante(hasard(tablesPoints->nbTables())); },
             genre::muet},
            {"sibling changes a point", 3, [=, this] { si([this](int i) { table().getData(i)->setCode(7); }); },
             genre::muet},
            {"sibling adds and removes", 2, [this] { modifier([this] { changerTableau(); }); }, genre::muet},
            {"sibling removes, then a point is added", 2,
             [this] {
                 modifier([this] {
                     changerTableau();
                     table().Ajouter(nouveau());
                     int place = -1;
                     EXPECT_TRUE(table().existPoint(CString(lue().getData(lue().nbPoint() - 1)->getNomPoint()), place));
                 });
             },
             genre::isole},
            {"save", 2, [this] { enregistrer(); }},
            {"reopen", 1, [this] { rouvrir(); }},
            {"other drawing", 2,
             [] {
                 auto& liste = DocumentList::instance();
                 const auto& ouverts = liste.documents();
                 liste.activateDocument(ouverts[ouverts.front().get() == liste.current() ? 1 : 0].get());
             }},
        };
    }

    std::wstring fichier()
    {
        std::filesystem::create_directories(dossier);
        return platform::wideFromUtf8((dossier / (std::to_string(++fichiers) + ".dxf")).string());
    }
    void enregistrer()
    {
        if (curDoc()->isNamedDrawing())
            return taper(L"SAUVERAP");
        taper(L"SAUVENOM | " + fichier());
    }
    void rouvrir()
    {
        enregistrer();
        const std::string avant = contenu(*tablesPoints, false);
        const std::wstring chemin = curDoc()->fileName();
        etats.erase(curDoc()->database());
        muets.erase(curDoc()->database());
        taper(L"FERMER");
        taper(L"OUVRIR | " + chemin);
        EXPECT_EQ(contenu(*tablesPoints, false), avant) << "opened again";
    }

    // ---- what must hold

    /// A state of the drawing has one state of the tables. While nothing was taken back the tables may still be on
    /// their way to it: those of one state are the last ones seen there.
    void verifierEtat(genre sorte)
    {
        AcDbDatabase* const dessin = curDoc()->database();
        const std::string maintenant = contenu(*tablesPoints, true);
        auto& connus = etats[dessin];
        const auto etat = dessin->impl().undo().state();
        const auto connu = connus.try_emplace(etat, maintenant).first;
        std::optional<std::uint64_t>& muet = muets[dessin];
        if (sorte == genre::muet)
            muet = etat;
        else if (muet != etat)
            muet.reset();
        if (sorte == genre::historique) {
            EXPECT_EQ(maintenant, connu->second) << "in state " << etat << " of the drawing";
        } else if (!muet) {
            connu->second = maintenant;
        }
    }
    void verifierSymboles()
    {
        for (int i = 0; i < tablesPoints->nbTables(); ++i) {
            const listePointsDuDessin& celle = *tablesPoints->getTable(i);
            for (int j = 0; j < celle.nbPoint(); ++j) {
                const pointDuDessin& p = *celle.getData(j);
                EXPECT_FALSE(!p.getId().isNull() && p.getId().database() != curDoc()->database());
                const AcDbObjectPointer<AcDbBlockReference> symbole(p.getId());
                if (symbole.openStatus() == Acad::eOk) {
                    EXPECT_EQ(symbole->position().x, p.getX()) << p.getNomPoint();
                    EXPECT_EQ(symbole->position().y, p.getY()) << p.getNomPoint();
                }
            }
        }
    }
    void verifierStockage()
    {
        projetsTopo relu;
        projetsTopo* const projet = tablesPoints;
        {
            const UndoTrial essai(curDoc()->database()->impl().undo());
            enregistrerInfosTopo();
            setSrcInfosTopo(nullptr, &relu, 1, 1);
        }
        setSrcInfosTopo(nullptr, projet, 1, 0);
        const std::string attendu = contenu(*projet, false);
        if (relu.nbTables() == projet->nbTables()) { // else empty tables were tidied
            EXPECT_EQ(contenu(relu, false), attendu) << "stored";
        }
    }

    unsigned graine = 0;
    std::mt19937 alea;
    reponses source;
    Kernel noyau;
    std::unique_ptr<suiviDessins> suivi;
    std::map<const AcDbDatabase*, std::map<std::uint64_t, std::string>> etats;
    std::map<const AcDbDatabase*, std::optional<std::uint64_t>> muets; // state in which a change is not noticed yet
    const std::filesystem::path dossier = supportEssai::fichier("dessins");
    int fichiers = 0;
};

TEST_F(AnnulationTest, bringsTheTablesBackWithTheDrawing)
{
    const std::vector<acte> tous = actes();
    std::vector<int> poids;
    for (const acte& a : tous)
        poids.push_back(a.poids);
    std::discrete_distribution<std::size_t> choix(poids.begin(), poids.end());
    const long long pas = variableEntiere("VELA_ANNULATION_PAS", 1500);
    long long annules = 0;
    std::string recents;
    for (long long i = 0; i < pas && !HasFailure(); ++i) {
        const acte& a = tous[choix(alea)];
        recents += "\n" + std::to_string(i) + ", state " + std::to_string(curDoc()->database()->impl().undo().state()) +
                   ": " + a.nom;
        recents.erase(0, recents.size() > 600 ? recents.find('\n', recents.size() - 600) : 0);
        SCOPED_TRACE("the last steps of seed " + std::to_string(graine) + recents);
        const auto avant = curDoc()->database()->impl().undo().state();
        if (a.sorte == genre::isole || a.sorte == genre::muet) {
            taper(L"ZOOM | _E");
            verifierEtat(genre::annonce);
        }
        a.faire();
        annules += a.sorte == genre::historique && curDoc()->database()->impl().undo().state() != avant;
        verifierEtat(a.sorte);
        verifierSymboles();
        verifierStockage();
    }
    std::printf("%lld steps, %lld of undo and redo that changed the drawing\n", pas, annules);
    EXPECT_GT(annules, pas / 20) << "hardly anything was taken back";
}

} // namespace
