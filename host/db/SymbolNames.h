#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "db/fields/NameKind.h"
#include "db/Record.h"

class AcDbDatabaseImpl;

/// The records of one symbol table, found by name. Names count without regard to case, accents included.
/// Looking a name up by its bytes in the file is the fast way: each spelling is folded once.
class SymbolNames {
public:
    SymbolNames(AcDbDatabaseImpl& database, NameKind kind) : m_database(database), m_kind(kind) {}

    /// The record that is the table itself (a TABLE record).
    AcDbStub* table = nullptr;

    /// Adds a record at the end of the table.
    void append(AcDbStub* record);
    /// In table order, erased ones among them.
    const std::vector<AcDbStub*>& records() const { return m_records; }

    /// Record of that name, null when there is none. Erased records only when asked for.
    AcDbStub* find(std::wstring_view name, bool withErased = false);
    /// The same, by the bytes of a tag of the file: there a renamed record still goes by its former name.
    AcDbStub* findBytes(std::string_view bytes);
    /// Whether a record of the file has another name by now.
    bool hasRenamed();
    /// The name that a tag of the file is to have from now on; nothing when it is right.
    std::optional<std::wstring> newName(std::string_view bytes);
    /// To be called when a record was renamed, erased or brought back.
    void forgetIndex();
    NameKind kind() const { return m_kind; }

private:
    struct SpellingHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view bytes) const { return std::hash<std::string_view>()(bytes); }
    };

    /// The spelling that a place of the small table below held last.
    struct Recent {
        const std::string* bytes = nullptr; ///< a key of m_spellings
        AcDbStub* record = nullptr;
    };
    Recent& recentOf(std::string_view bytes);
    void forgetSpellings();

    void buildIndex();
    AcDbStub* findInFile(std::wstring_view name);

    AcDbDatabaseImpl& m_database;
    NameKind m_kind;
    std::vector<AcDbStub*> m_records;
    bool m_indexed = false;
    std::unordered_map<std::wstring, AcDbStub*> m_index;  // folded names of records that are not erased
    std::unordered_map<std::wstring, AcDbStub*> m_former; // of renamed records, by their names in the file
    std::unordered_map<std::string, AcDbStub*, SpellingHash, std::equal_to<>> m_spellings; // by the bytes of tags
    std::array<Recent, 64> m_recent; // neighbours mostly name the same few layers and styles
};

/// Lower case whatever the locale, for comparing names.
std::wstring foldedName(std::wstring_view name);
