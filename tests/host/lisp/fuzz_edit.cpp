// Opens any drawing and does to it what people do: looks at its entities and gives them back changed, copies, turns,
// explodes, takes back, saves, opens again. Nothing may crash, hang or stay open, and what was taken back is gone.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include <unistd.h>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "db/ObjectOpening.h"
#include "db/SavePlan.h"
#include "ed/Kernel.h"
#include "gi/GraphicsSink.h"
#include "gi/Scene.h"
#include "lisp/drawing/LispSession.h"
#include "platform/CodePage.h"

#include "dbsymtb.h"

namespace {

namespace fs = std::filesystem;

constexpr int mostEntities = 40; // of a drawing, changed

void expect(bool holds)
{
    if (!holds)
        std::abort();
}

class Nowhere : public GraphicsSink {
public:
    void polyline(Points, const Appearance&) override {}
    void polygon(std::span<const std::vector<AcGePoint3d>>, const Appearance&) override {}
    void dot(const AcGePoint3d&, const Appearance&) override {}
    void text(const TextItem&, const Appearance&) override {}
};

std::string savedBytes(AcDbDatabase& database)
{
    std::string bytes;
    const SavePlan plan(database.impl());
    for (const std::string_view piece : plan.pieces())
        bytes += piece;
    return bytes;
}

void look(AcDbDatabase& database)
{
    Nowhere sink;
    Scene& scene = Scene::of(database);
    scene.draw(SceneView::showing(scene.extents(), 400, 300), sink);
}

void evaluate(const std::string& expression)
{
    LispSession& session = LispSession::of(*curDoc());
    session.context().setTimeLimit(std::chrono::milliseconds(2000));
    session.evaluate(platform::wideFromUtf8(expression));
}

/// The entity as a list, given back with another value under one of its codes.
void modify(const std::string& handle, std::mt19937& random)
{
    static constexpr const char* changes[] = {"(62 . 3)",        "(8 . \"0\")",      "(40 . 2.5)", "(10 1.0 2.0 3.0)",
                                              "(1 . \"texte\")", "(50 . 1.5)",       "(70 . 1)",   "(6 . \"ByLayer\")",
                                              "(48 . 0.5)",      "(11 4.0 5.0 6.0)", "(90 . 2)",   "(420 . 255)"};
    const std::string pair = changes[random() % std::size(changes)];
    evaluate("(setq e (entget (handent \"" + handle +
             "\") '(\"*\")))"
             "(setq p '" +
             pair +
             ")"
             "(if e (entmod (if (assoc (car p) e) (subst p (assoc (car p) e) e) (append e (list p)))))");
}

void turn(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.object())
        entity->transformBy(AcGeMatrix3d::rotation(0.5, AcGeVector3d::kZAxis));
}

void copy(AcDbDatabase& database, AcDbObjectId id)
{
    AcDbObjectIdArray ids;
    ids.append(id);
    AcDbIdMapping mapping;
    database.deepCloneObjects(ids, database.currentSpaceId(), mapping);
}

/// The pieces take the entity's place.
void explode(AcDbDatabase& database, AcDbObjectId id)
{
    AcDbVoidPtrArray pieces;
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (!entity.object() || entity->explode(pieces) != Acad::eOk)
            return;
        entity->erase();
    }
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    for (void* held : pieces) {
        std::unique_ptr<AcDbEntity> piece(static_cast<AcDbEntity*>(held));
        if (space.object() && space->appendAcDbEntity(piece.get()) == Acad::eOk)
            piece.release()->close();
    }
}

void edit(AcDbDatabase& database, std::mt19937& random)
{
    const std::vector<AcDbStub*> entities = database.impl().blocks().of(database.currentSpaceId().stub()).entities;
    for (std::size_t i = 0; i < entities.size() && i < mostEntities; ++i) {
        const AcDbObjectId id(entities[i]);
        ACHAR handle[17] = L"";
        id.handle().getIntoAsciiBuffer(handle, 17);
        switch (random() % 4) {
        case 0:
            modify(platform::utf8FromWide(handle), random);
            break;
        case 1:
            turn(id);
            break;
        case 2:
            copy(database, id);
            break;
        default:
            explode(database, id);
        }
    }
}

void exercise(const fs::path& path, std::mt19937& random)
{
    DocumentList& documents = DocumentList::instance();
    const auto opened = documents.open(path.wstring());
    if (!opened.document)
        return;
    AcDbDatabase& database = *opened.document->database();
    UndoRecorder& undo = database.impl().undo();
    const std::string before = savedBytes(database);
    undo.startMark();
    edit(database, random);
    look(database);
    undo.endMark();
    undo.undo();
    // Where handles were made anew, $HANDSEED goes on rising.
    expect(!database.impl().file().problems().empty() || savedBytes(database) == before);
    undo.redo();
    look(database);
    expect(ObjectOpening::openCount() == 0);
    const fs::path saved = path.string() + "-2.dxf";
    const bool written = database.saveAs(saved.wstring().c_str()) == Acad::eOk;
    documents.closeAll();
    if (!written)
        return;
    const auto again = documents.open(saved.wstring());
    expect(again.document != nullptr);
    look(*again.document->database());
    documents.closeAll();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Kernel kernel;
    static const fs::path folder = fs::temp_directory_path() / ("vela-edition-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    const fs::path path = folder / "plan.dxf";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    std::mt19937 random(static_cast<unsigned>(size) * 2654435761U + (size > 0 ? data[size / 2] : 0U));
    exercise(path, random);
    fs::remove_all(folder);
    return 0;
}
