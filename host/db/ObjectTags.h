#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "db/ObjectExtras.h"
#include "dxf/DxfTagWriter.h"

#include "dbmain.h"

class AcDbDatabaseImpl;

/// What stands around the modelled fields of an object: its extension dictionary, persistent reactors and extended
/// data; as changed, or else as its bytes tell.
class ObjectTags {
public:
    ObjectTags(const AcDbDatabaseImpl& database, const AcDbObject& object) : m_database(database), m_object(object) {}

    /// Handle, 0 for none.
    std::uint64_t extensionDictionary() const;
    std::vector<std::uint64_t> persistentReactors() const;
    /// Bytes of the extended data at the end of an object's own bytes.
    std::string_view xdataBytes() const;

    bool extensionDictionaryChanged() const;
    bool reactorsChanged() const;
    bool xdataChanged() const;
    void writeExtensionDictionary(DxfTagWriter& out) const;
    void writeReactors(DxfTagWriter& out) const;
    void writeXData(DxfTagWriter& out) const;

    /// A new chain of one application's data, or of all when null; null when there is none.
    static resbuf* xData(const AcDbObject& object, const ACHAR* application);
    /// The extended data of an object, whether set by the program or still bytes of the file: for a copy of it.
    static std::vector<ApplicationData> dataOf(const AcDbObject& object);
    /// The chain given to setXData, by application. Answers as setXData does.
    static Acad::ErrorStatus splitXData(const AcDbObject& object, const resbuf* data,
                                        std::vector<ApplicationData>& changes);

private:
    static bool hasRoom(const AcDbObject& object, const std::vector<ApplicationData>& changes);
    std::vector<std::uint64_t> handlesInGroup(std::string_view group) const;
    /// The runs of the old extended data, a 1001 item and what follows it, each with the position of the change that
    /// replaces it, or -1.
    std::vector<std::pair<std::string_view, int>> xdataRuns() const;
    int changeOf(std::wstring_view application) const;
    /// A chain of every application's data that `wanted` names, or of all.
    resbuf* xdataChain(const ACHAR* wanted) const;
    const AcDbDatabaseImpl& m_database;
    const AcDbObject& m_object;
};
