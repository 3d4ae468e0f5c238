#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/DatabaseImpl.h"
#include "dxf/DxfTag.h"

/// The tags of one entity after another, as a drawing file holds them, read when they are first asked for. What did not
/// change is read from the file's bytes without making an object of it, so that filtering a whole drawing costs little
/// more than a scan.
class EntityTags {
public:
    explicit EntityTags(AcDbDatabaseImpl& database) : m_database(database), m_hasRenamed(database.hasRenamed()) {}

    /// Goes on to another entity; the tags of the one before are gone.
    void moveTo(DxfRecord& record);
    const std::vector<DxfTag>& tags() const;
    /// Whether the entity differs from the bytes of the file: its tags have to be written first, which costs most.
    bool isChanged() const;
    /// The value of the first tag of a code, as its bytes stand; empty when there is none.
    std::string_view bytesOf(int code) const;

    AcDbDatabaseImpl& database() const { return m_database; }
    const DxfForm& form() const { return m_database.form(); }
    /// A text of the drawing, decoded.
    std::wstring decoded(std::string_view bytes) const;

private:
    AcDbDatabaseImpl& m_database;
    bool m_hasRenamed;
    DxfRecord* m_record = nullptr;
    mutable bool m_read = true;
    mutable std::string m_written; ///< of an entity whose bytes are not those of the file
    mutable std::vector<DxfTag> m_tags;
};
