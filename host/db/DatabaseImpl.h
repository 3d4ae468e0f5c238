#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "db/AtomicFile.h"
#include "db/BlockContents.h"
#include "db/DrawingProblems.h"
#include "db/fields/NameKind.h"
#include "db/HeaderVariables.h"
#include "db/NewRecords.h"
#include "db/Record.h"
#include "db/SymbolNames.h"
#include "db/UndoRecorder.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfFile.h"
#include "platform/FileState.h"

#include "dbmain.h"

struct DxfClass;

/// Inside of AcDbDatabase: the file, its records, the objects decoded so far, and what changed.
///
/// Every object has a record, and an object id points to it: those of the file stand in the file's own array, in file
/// order, which never moves; those of new objects in a deque. An object is decoded when it is first opened.
class AcDbDatabaseImpl {
public:
    class Ownership;

    explicit AcDbDatabaseImpl(AcDbDatabase& self);
    ~AcDbDatabaseImpl();
    AcDbDatabaseImpl(const AcDbDatabaseImpl&) = delete;
    AcDbDatabaseImpl& operator=(const AcDbDatabaseImpl&) = delete;

    /// The database that a record belongs to.
    static AcDbDatabaseImpl& of(const AcDbStub* stub);
    /// The same, or null for a pointer that is no record of any open database.
    static AcDbDatabaseImpl* find(const AcDbStub* stub);

    /// Whether an address, which may be anything, is that of one of its records.
    bool holds(const void* address) const;

    AcDbDatabase& self() const { return m_self; }

    /// Takes an opened file. Throws DxfError when what every drawing has cannot be made up.
    void load(std::unique_ptr<DxfFile> file);
    bool isLoaded() const { return m_file != nullptr; }
    /// Saves in a form (ASCII or binary, line ends); the file's own is the fast way.
    Acad::ErrorStatus save(const std::wstring& name, const DxfForm& as);
    /// Writes the drawing as it is now to another file, whole or not at all, and stays the drawing of its own file.
    /// @return why it failed, in French; nothing when it did not.
    std::optional<std::wstring> writeCopy(const std::filesystem::path& path);
    DxfFile& file() const { return *m_file; }
    /// Of the file; any form before one is read.
    const DxfForm& form() const { return m_file ? m_file->form() : m_noForm; }

    // ---- records

    std::uint32_t positionOf(const DxfRecord& record) const
    {
        return static_cast<std::uint32_t>(&record - m_file->records().data());
    }
    const std::string& typeName(const DxfRecord& record) const { return m_file->typeName(record.type); }
    /// Bytes of a record of the file, or those that a copy brought along; nothing for an object made new, nor for a
    /// record whose bytes are lost.
    std::string_view bytes(const DxfRecord& record) const
    {
        if ((record.flags & DxfRecord::lost) != 0)
            return {};
        return isNew(record) ? std::string_view(static_cast<const NewRecord&>(record).bytes) : m_file->bytes(record);
    }
    /// Null for the null handle and for one that is not known.
    AcDbStub* byHandle(std::uint64_t handle) const;
    std::uint64_t takeHandle();
    /// Above every handle given so far, those aside that U took back: a drawing is then saved as it was before.
    std::uint64_t handleSeed() const;
    /// Whether it is part of paper space, which its tags tell too.
    void setPaperSpace(AcDbStub* entity, bool paper);
    /// Gives the object a record, under `owner`. It belongs to the database from now on, open for write.
    AcDbObjectId adopt(std::unique_ptr<AcDbObject> object, AcDbStub* owner);
    /// A record for a copied object, not decoded yet.
    AcDbStub* adoptBytes(std::string_view typeName, std::uint64_t handle, std::string bytes);
    /// Whether a record holds an object at all (SECTION, ENDTAB and their like do not).
    bool holdsObject(const DxfRecord& record) const;
    const NewRecords& newRecords() const { return m_newRecords; }
    /// A layer that entities of the file are on and its table lacks. Told as a problem.
    AcDbStub* makeUpLayer(const std::wstring& name);

    // ---- objects

    /// The object of a record, decoded now if need be. A record that cannot be decoded gives a proxy and a problem.
    AcDbObject& object(DxfRecord& record);
    const DxfClass& classOf(const DxfRecord& record) const;
    /// Who owns what; see db/Ownership.h.
    Ownership ownership();
    void noteChange(AcDbObject& object);
    /// Marks a record of the file for the next save.
    void noteEdit(DxfRecord& record);
    const std::vector<std::uint32_t>& edits() const { return m_edits; }
    /// Whether every drawing needs it: a table, the root dictionary, layer 0, model space and their like.
    bool isIndispensable(const AcDbObject& object);
    /// Whether a record of a symbol table has a name that another one has too.
    bool isNameTaken(const AcDbObject& object);
    /// Whether it is an entity that the user locked against changes, with its layer.
    bool isOnLockedLayer(const AcDbObject& object);

    // ---- names, blocks, header

    SymbolNames& names(NameKind kind) { return m_names[static_cast<std::size_t>(kind)]; }
    /// Record of that name; null when there is none, or an erased one.
    AcDbStub* named(NameKind kind, std::wstring_view name);
    std::wstring recordName(AcDbStub* stub);
    /// The name that a record of a symbol table has in its bytes.
    std::wstring nameInBytes(const DxfRecord& record) const;
    /// Whether records of the file were renamed: then tags that name them are written anew.
    bool hasRenamed();
    /// The tags of an object of the file, with the names that its definitions have by now.
    std::string withNewNames(const DxfRecord& record, std::string_view tags);
    BlockContents& blocks() { return m_blocks; }
    /// The entity and what it owns become part of a block.
    AcDbObjectId joinBlock(AcDbStub* block, std::unique_ptr<AcDbEntity> entity);
    /// BLOCK and ENDBLK for a new block record.
    void makeBlockBounds(AcDbStub* block);
    HeaderVariables& header() { return m_header; }
    AcDbStub* rootDictionary() const { return m_rootDictionary; }
    UndoRecorder& undo() { return m_undo; }

    // ---- reactors, messages

    std::vector<AcDbDatabaseReactor*>& reactors() { return m_reactors; }
    DrawingProblems& problems() { return m_problems; }
    const DrawingProblems& problems() const { return m_problems; }
    std::wstring fileName; ///< as given by the caller
    std::wstring lastError;
    bool replacesReadOnly = false; ///< a save may replace a file marked as read-only: its user said so

private:
    void adoptStructure();
    void makeMissingTables();
    void makeMissingRecords();
    void makeMissingBlocks();
    AcDbStub* findRootDictionary();
    std::unique_ptr<AcDbObject> decode(DxfRecord& record);

    AcDbDatabase& m_self;
    std::unique_ptr<DxfFile> m_file;
    DxfForm m_noForm;
    NewRecords m_newRecords;
    std::unordered_map<std::uint64_t, AcDbStub*> m_newByHandle;
    std::uint64_t m_nextHandle = 1;
    std::vector<std::uint32_t> m_edits; // positions of records of the file that may differ from their bytes
    mutable std::vector<const DxfClass*> m_classByType;
    std::vector<SymbolNames> m_names;
    mutable BlockContents m_blocks; // listed when first asked for
    HeaderVariables m_header;
    UndoRecorder m_undo;
    AcDbStub* m_rootDictionary = nullptr;
    std::filesystem::path m_savedPath; // where it was saved last
    FileState m_savedState;
    std::vector<AcDbDatabaseReactor*> m_reactors;
    DrawingProblems m_problems;
};
