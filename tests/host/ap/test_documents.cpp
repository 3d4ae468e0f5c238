#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../rx/moduleTalk.h"
#include "ap/DocumentData.h"
#include "ap/DocumentList.h"
#include "ap/UndoMarks.h"
#include "platform/CodePage.h"
#include "rx/ModuleTable.h"

#include "dbapserv.h"
#include "FakeDatabase.h"

namespace {

using Log = std::vector<std::wstring>;

/// All that is heard goes to the log of the (fake) database, so that the order shows.
Log& heard = fakeDatabase::log;

std::wstring currentTitle()
{
    const AcApDocument* current = acDocManager->curDocument();
    return current ? current->docTitle() : L"none";
}

} // namespace

bool saveFails = false; // the module has data that it cannot put into the drawing

extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode moduleHeard(const char*, AcRx::AppMsgCode message,
                                                                               void* packet)
{
    if (message == AcRx::kInitAppMsg)
        acrxDynamicLinker->unlockApplication(packet);
    const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
    EXPECT_EQ(working, acDocManager->curDocument() ? acDocManager->curDocument()->database() : nullptr);
    heard.push_back(L"message " + std::to_wstring(static_cast<int>(message)) + L" " + currentTitle());
    return message == AcRx::kSaveMsg && saveFails ? AcRx::kRetError : AcRx::kRetOK;
}

namespace {

class Listener : public AcApDocManagerReactor {
public:
    Listener() { acDocManager->addReactor(this); }
    ~Listener() override { acDocManager->removeReactor(this); }
    void documentCreated(AcApDocument* d) override { note(L"created", d); }
    void documentToBeDestroyed(AcApDocument* d) override { note(L"to be destroyed", d); }
    void documentDestroyed(const ACHAR* name) override
    {
        heard.push_back(L"destroyed " + std::wstring(name) + L" of " + std::to_wstring(fakeDatabase::alive));
    }
    void documentBecameCurrent(AcApDocument* d) override { note(L"current", d); }
    void documentActivated(AcApDocument* d) override { note(L"active", d); }
    void documentLockModeChanged(AcApDocument* d, AcAp::DocLockMode before, AcAp::DocLockMode after, AcAp::DocLockMode,
                                 const ACHAR* command) override
    {
        note(std::to_wstring(before) + L" to " + std::to_wstring(after) + L" by " + command, d);
    }

private:
    static void note(const std::wstring& what, const AcApDocument* d)
    {
        heard.push_back(what + L" " + (d ? d->docTitle() : L"none"));
    }
};

class RecordedMarks : public UndoMarks {
public:
    void documentOpened(AcDbDatabase&) override { log += "o"; }
    void startMark(AcDbDatabase&) override { log += "("; }
    void endMark(AcDbDatabase&) override { log += ")"; }
    std::string log;
};

class Documents : public testing::Test {
protected:
    void SetUp() override { setUndoMarks(&marks); }
    void TearDown() override
    {
        ModuleTable::instance().unloadAll();
        list.closeAll();
        setUndoMarks(nullptr);
        heard.clear();
        EXPECT_EQ(fakeDatabase::alive, 0);
    }
    static Log taken() { return std::exchange(heard, {}); }
    Document& opened(const wchar_t* path) { return *list.open(path).document; }

    RecordedMarks marks;
    DocumentList& list = DocumentList::instance();
};

TEST_F(Documents, tellThatAModuleCouldNotStoreItsData)
{
    ASSERT_EQ(ModuleTable::instance().load(platform::wideFromUtf8(TEST_MODULE)), std::nullopt);
    int stored = 0;
    list.onStored([&stored](Document&) { ++stored; });
    Document& a = opened(L"/p/a.dxf");
    for (const bool fails : {true, false}) {
        saveFails = fails;
        taken();
        EXPECT_EQ(list.save(a).has_value(), fails);
        EXPECT_EQ(taken().back(), L"write /p/a.dxf") << "the drawing itself is saved";
        EXPECT_EQ(stored, fails ? 1 : 2) << "it counts as saved only with all its data";
    }
    list.onStored(nullptr);
}

TEST_F(Documents, tellModulesAndReactorsInOrder)
{
    ASSERT_EQ(ModuleTable::instance().load(platform::wideFromUtf8(TEST_MODULE)), std::nullopt);
    EXPECT_EQ(taken(), (Log{L"message 1 none"}));
    const Listener listener;

    Document& a = opened(L"/p/a.dxf");
    EXPECT_EQ(taken(),
              (Log{L"read /p/a.dxf", L"created a.dxf", L"current a.dxf", L"active a.dxf", L"message 3 a.dxf"}));
    Document& b = opened(L"/p/b.dxf");
    EXPECT_EQ(taken(),
              (Log{L"read /p/b.dxf", L"created b.dxf", L"current b.dxf", L"active b.dxf", L"message 3 b.dxf"}));

    // A drawing that is not the current one is, while it is being saved.
    EXPECT_EQ(list.save(a), std::nullopt);
    EXPECT_EQ(taken(), (Log{L"current a.dxf", L"message 9 a.dxf", L"write /p/a.dxf", L"current b.dxf"}));

    // A module that comes later hears of both, then b is current again; and the same as it goes.
    ModuleTable::instance().unloadAll();
    EXPECT_EQ(taken(),
              (Log{L"current a.dxf", L"message 4 a.dxf", L"current b.dxf", L"message 4 b.dxf", L"message 2 b.dxf"}));
    ASSERT_EQ(ModuleTable::instance().load(platform::wideFromUtf8(TEST_MODULE)), std::nullopt);
    EXPECT_EQ(taken(),
              (Log{L"message 1 b.dxf", L"current a.dxf", L"message 3 a.dxf", L"current b.dxf", L"message 3 b.dxf"}));

    EXPECT_EQ(list.close(b), std::nullopt);
    EXPECT_EQ(taken(), (Log{L"message 4 b.dxf", L"to be destroyed b.dxf", L"current a.dxf", L"active a.dxf",
                            L"destroyed /p/b.dxf of 1"}));
    EXPECT_EQ(list.close(a), std::nullopt);
    EXPECT_EQ(taken(),
              (Log{L"message 4 a.dxf", L"to be destroyed a.dxf", L"current none", L"destroyed /p/a.dxf of 0"}));
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(Documents, closingOneInTheBackLeavesTheFrontAlone)
{
    Document& a = opened(L"/p/a.dxf");
    Document& b = opened(L"/p/b.dxf");
    EXPECT_EQ(list.close(a), std::nullopt);
    EXPECT_EQ(list.current(), &b);
    EXPECT_EQ(list.mdiActiveDocument(), &b);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), b.database());
}

TEST_F(Documents, knowTheirFiles)
{
    Document& fresh = list.create();
    EXPECT_FALSE(fresh.isNamedDrawing());
    EXPECT_EQ(std::wstring(fresh.docTitle()).substr(0, 6), L"Dessin");
    EXPECT_STREQ(fresh.fileName(), fresh.docTitle());
    EXPECT_EQ(fresh.folder().back(), L'/');
    EXPECT_EQ(list.save(fresh), L"Le dessin « " + std::wstring(fresh.docTitle()) + L" » n'a pas encore de fichier.");

    fakeDatabase::nextFailure = L"/p/new.dxf : disque plein.";
    EXPECT_EQ(list.saveAs(fresh, L"/p/new.dxf"), L"/p/new.dxf : disque plein.");
    EXPECT_FALSE(fresh.isNamedDrawing()) << "a failed save changes nothing";
    EXPECT_EQ(list.saveAs(fresh, L"/p/x/../new.v2.dxf"), std::nullopt);
    EXPECT_STREQ(fresh.fileName(), L"/p/new.v2.dxf");
    EXPECT_STREQ(fresh.docTitle(), L"new.v2.dxf");
    EXPECT_EQ(fresh.folder(), L"/p/");

    Document& a = opened(L"/p/a.dxf");
    taken();
    EXPECT_EQ(list.open(L"/p/./new.v2.dxf").document, &fresh) << "the same file opens once";
    EXPECT_EQ(taken(), Log{});
    EXPECT_EQ(list.mdiActiveDocument(), &fresh);
    EXPECT_EQ(list.saveAs(a, L"/p/new.v2.dxf"), L"Le fichier « /p/new.v2.dxf » est ouvert dans un autre dessin.");

    fakeDatabase::nextFailure = L"/p/bad.dxf, ligne 3 : code attendu.";
    const DocumentList::Opened refused = list.open(L"/p/bad.dxf");
    EXPECT_EQ(refused.document, nullptr);
    EXPECT_EQ(refused.failure, L"/p/bad.dxf, ligne 3 : code attendu.");
    EXPECT_EQ(list.documentCount(), 2);
}

TEST_F(Documents, areFoundByTheirDatabase)
{
    Document& a = opened(L"/p/a.dxf");
    Document& b = opened(L"/p/b.dxf");
    const AcDbDatabase scratch(false, true);
    EXPECT_EQ(acDocManager->document(a.database()), &a);
    EXPECT_EQ(acDocManager->document(&scratch), nullptr);
    EXPECT_EQ(acDocManager->setCurDocument(&a), Acad::eOk);
    EXPECT_EQ(curDoc(), &a);
    EXPECT_EQ(acDocManager->mdiActiveDocument(), &b);

    std::unique_ptr<AcApDocumentIterator> each(acDocManager->newAcApDocumentIterator());
    std::vector<AcApDocument*> found;
    for (; !each->done(); each->step())
        found.push_back(each->document());
    EXPECT_EQ(found, (std::vector<AcApDocument*>{&a, &b}));

    EXPECT_EQ(list.close(b), std::nullopt);
    EXPECT_EQ(acDocManager->setCurDocument(&b), Acad::eNoDocument);
    EXPECT_EQ(acDocManager->setCurDocument(nullptr), Acad::eNoDocument);
}

TEST_F(Documents, locksNestAndTheStrongestShows)
{
    Document& a = opened(L"/p/a.dxf");
    const Listener listener;
    taken();
    EXPECT_EQ(acDocManager->unlockDocument(&a), Acad::eLockViolation);
    EXPECT_EQ(acDocManager->lockDocument(&a, AcAp::kNone), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->lockDocument(nullptr), Acad::eNoDocument);

    EXPECT_EQ(acDocManager->lockDocument(&a, AcAp::kWrite, L"MAJPOINTS"), Acad::eOk);
    EXPECT_EQ(acDocManager->lockDocument(&a, AcAp::kRead), Acad::eOk);
    EXPECT_EQ(acDocManager->lockDocument(&a, AcAp::kXWrite), Acad::eOk);
    EXPECT_EQ(a.myLockMode(), AcAp::kXWrite);
    EXPECT_EQ(a.lockMode(true), AcAp::kXWrite);
    EXPECT_EQ(a.lockMode(false), AcAp::kNotLocked);
    EXPECT_EQ(acDocManager->unlockDocument(&a), Acad::eOk);
    EXPECT_EQ(a.myLockMode(), AcAp::kWrite);
    EXPECT_EQ(acDocManager->unlockDocument(&a), Acad::eOk);
    EXPECT_EQ(acDocManager->unlockDocument(&a), Acad::eOk);
    EXPECT_EQ(a.myLockMode(), AcAp::kNotLocked);
    EXPECT_EQ(acDocManager->unlockDocument(&a), Acad::eLockViolation);
    EXPECT_EQ(taken(),
              (Log{L"2 to 4 by MAJPOINTS a.dxf", L"4 to 64 by  a.dxf", L"64 to 4 by  a.dxf", L"4 to 2 by  a.dxf"}));

    EXPECT_EQ(acDocManager->setCurDocument(&a, AcAp::kWrite, true), Acad::eOk);
    EXPECT_EQ(a.lockCount(), 1U);
}

TEST_F(Documents, automationMarksNestAndOutliveNothing)
{
    Document& a = opened(L"/p/a.dxf");
    IDispatch* automation = a.GetIDispatch(true);
    const auto call = [automation](const wchar_t* method, UINT arguments = 0) {
        std::wstring name = method;
        LPOLESTR names[] = {name.data()};
        DISPID id = 0;
        if (const HRESULT found = automation->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
            FAILED(found))
            return found;
        DISPPARAMS parameters{nullptr, nullptr, arguments, 0};
        return automation->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                                  nullptr);
    };
    EXPECT_EQ(call(L"EndUndoMark"), E_FAIL);
    EXPECT_EQ(call(L"StartUndoMark"), S_OK);
    EXPECT_EQ(call(L"startundomark"), S_OK);
    EXPECT_EQ(call(L"EndUndoMark"), S_OK);
    EXPECT_EQ(call(L"EndUndoMark"), S_OK);
    EXPECT_EQ(call(L"EndUndoMark"), E_FAIL);
    EXPECT_EQ(call(L"StartUndoMark", 1), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(L"Regen"), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(automation->Invoke(99, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(marks.log, "o(())");

    EXPECT_EQ(a.GetIDispatch(false), automation);
    EXPECT_EQ(list.close(a), std::nullopt);
    EXPECT_EQ(call(L"StartUndoMark"), E_FAIL) << "the document has gone";
    EXPECT_EQ(automation->Release(), 0U);
}

TEST_F(Documents, ownDataGoWithTheDocument)
{
    struct Data {
        std::shared_ptr<int> value = std::make_shared<int>(0);
    };
    DocumentData<Data> data, others;
    Document& a = opened(L"/p/a.dxf");
    Document& b = opened(L"/p/b.dxf");
    *data.of(a).value = 1;
    *data.of(b).value = 2;
    *others.of(a).value = 3;
    EXPECT_EQ(*data.of(a).value, 1);
    const std::weak_ptr<int> ofA = data.of(a).value;
    EXPECT_EQ(list.close(a), std::nullopt);
    EXPECT_TRUE(ofA.expired());
    EXPECT_EQ(*data.of(b).value, 2);
}

TEST_F(Documents, doNotCloseUnderARunningCommand)
{
    Document& a = opened(L"/p/a.dxf");
    a.commandStarts();
    EXPECT_FALSE(acDocManager->isApplicationContext());
    EXPECT_EQ(list.close(a), L"Le dessin « a.dxf » ne peut être fermé : une commande est en cours.");
    a.commandEnds();
    EXPECT_TRUE(acDocManager->isApplicationContext());
    EXPECT_EQ(list.close(a), std::nullopt);
}

} // namespace
