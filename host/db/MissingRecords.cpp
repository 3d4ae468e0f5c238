#include <memory>
#include <utility>
#include <vector>

#include "db/DatabaseImpl.h"
#include "platform/CodePage.h"

#include "dbdict.h"
#include "dbsymtb.h"

/// What every drawing has and the one at hand lacks: made up when it is read, written with the first change.

namespace {

/// Adds a record to a table, as the file would have it.
template <class Record>
Record* makeRecord(AcDbDatabaseImpl& database, NameKind kind, const wchar_t* name)
{
    auto record = std::make_unique<Record>();
    Record* made = record.get();
    made->setName(name);
    AcDbStub* const stub = database.adopt(std::move(record), database.names(kind).table).stub();
    database.names(kind).append(stub);
    return made;
}

std::string quoted(const char* kind, const wchar_t* name)
{
    return std::string(kind) + " « " + platform::utf8FromWide(name) + " »";
}

} // namespace

void AcDbDatabaseImpl::makeMissingTables()
{
    const auto make = [this]<class Table>(NameKind kind, std::unique_ptr<Table> table) {
        if (names(kind).table)
            return;
        Table* made = table.get();
        names(kind).table = adopt(std::move(table), nullptr).stub();
        made->close();
    };
    make(NameKind::block, std::make_unique<AcDbBlockTable>());
    make(NameKind::layer, std::make_unique<AcDbLayerTable>());
    make(NameKind::textStyle, std::make_unique<AcDbTextStyleTable>());
    make(NameKind::linetype, std::make_unique<AcDbLinetypeTable>());
    make(NameKind::regApp, std::make_unique<AcDbRegAppTable>());
    make(NameKind::dimStyle, std::make_unique<AcDbDimStyleTable>());
}

void AcDbDatabaseImpl::makeMissingRecords()
{
    std::string told;
    const auto make = [&]<class Record>(Record*, NameKind kind, const char* what, const wchar_t* name) -> Record* {
        if (named(kind, name))
            return nullptr;
        told += (told.empty() ? "" : ", ") + quoted(what, name);
        return makeRecord<Record>(*this, kind, name);
    };
    const auto makeClosed = [&](auto* record, NameKind kind, const char* what, const wchar_t* name) {
        if (auto* made = make(record, kind, what, name))
            made->close();
    };
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"})
        makeClosed(static_cast<AcDbLinetypeTableRecord*>(nullptr), NameKind::linetype, "type de ligne", name);
    if (auto* layer = make(static_cast<AcDbLayerTableRecord*>(nullptr), NameKind::layer, "calque", L"0")) {
        layer->setLinetypeObjectId(m_self.continuousLinetype());
        layer->close();
    }
    makeClosed(static_cast<AcDbTextStyleTableRecord*>(nullptr), NameKind::textStyle, "style de texte", L"Standard");
    makeClosed(static_cast<AcDbRegAppTableRecord*>(nullptr), NameKind::regApp, "application", L"ACAD");
    // Both records come first: by them the entities of the file are told apart.
    std::vector<AcDbStub*> spaces;
    for (const wchar_t* name : {ACDB_MODEL_SPACE, ACDB_PAPER_SPACE})
        if (auto* space = make(static_cast<AcDbBlockTableRecord*>(nullptr), NameKind::block, "bloc", name)) {
            spaces.push_back(space->objectId().stub());
            space->close();
        }
    makeMissingBlocks();
    for (AcDbStub* space : spaces)
        if (!m_blocks.of(space).begin)
            makeBlockBounds(space);
    if (!told.empty())
        m_problems.add("enregistrements que tout dessin contient, absents et refaits : " + told);
}

/// References find a block by its record: without one, what is defined would show nowhere.
void AcDbDatabaseImpl::makeMissingBlocks()
{
    constexpr std::size_t mostNamed = 10;
    std::size_t made = 0;
    std::string told;
    for (const std::wstring& name : m_blocks.withoutRecord()) {
        if (named(NameKind::block, name)) // defined twice
            continue;
        auto record = std::make_unique<AcDbBlockTableRecord>();
        AcDbBlockTableRecord* const block = record.get();
        block->m_name = name; // whatever its characters: the file has it
        names(NameKind::block).append(adopt(std::move(record), names(NameKind::block).table).stub());
        block->close();
        if (++made <= mostNamed)
            told += (told.empty() ? "« " : ", « ") + platform::utf8FromWide(name) + " »";
    }
    if (made > mostNamed)
        told += " et " + std::to_string(made - mostNamed) + " autres";
    if (made > 0)
        m_problems.add("blocs définis mais absents de la table des blocs ; ils y sont ajoutés : " + told);
}

AcDbStub* AcDbDatabaseImpl::makeUpLayer(const std::wstring& name)
{
    const bool recording = m_undo.isRecording();
    m_undo.setRecording(false); // no change of the user's
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    AcDbLayerTableRecord* made = layer.get();
    made->m_name = name; // whatever its characters: the file has it
    made->setLinetypeObjectId(m_self.continuousLinetype());
    AcDbStub* const stub = adopt(std::move(layer), names(NameKind::layer).table).stub();
    made->close();
    m_undo.setRecording(recording);
    recordOf(stub)->flags = RecordFlags::isNew | RecordFlags::madeUp;
    names(NameKind::layer).append(stub);
    m_problems.add("calque « " + platform::utf8FromWide(name) +
                   " » absent de la table des calques ; il y est ajouté, en couleur 7");
    return stub;
}

AcDbStub* AcDbDatabaseImpl::findRootDictionary()
{
    const DxfRange* objects = m_file->section("OBJECTS");
    if (objects)
        for (std::uint32_t i = objects->first + 1; i <= objects->last; ++i)
            if (typeName(m_file->records()[i]) == "DICTIONARY")
                return stubOf(&m_file->records()[i]); // the root is the first one, by the format's own rule
    auto dictionary = std::make_unique<AcDbDictionary>();
    AcDbDictionary* made = dictionary.get();
    const AcDbObjectId id = adopt(std::move(dictionary), nullptr);
    made->close();
    return id.stub();
}
