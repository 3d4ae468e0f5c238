#pragma once

#include <functional>
#include <unordered_set>

#include "dbmain.h"

/// Gathers what changes in a drawing, for its scene to read anew later. Told while objects change, it only takes notes.
class SceneChanges : public AcDbDatabaseReactor {
public:
    explicit SceneChanges(AcDbDatabase& database);
    ~SceneChanges() override;
    SceneChanges(const SceneChanges&) = delete;
    SceneChanges& operator=(const SceneChanges&) = delete;

    std::unordered_set<AcDbStub*> entities; ///< that stand in a block and changed, or whose parts did
    std::unordered_set<AcDbStub*> blocks;   ///< whose base point or contents changed
    bool tables = false;                    ///< layers, linetypes, text styles
    bool header = false;
    std::uint64_t count = 0; ///< of all changes so far

    bool any() const { return tables || header || !entities.empty() || !blocks.empty(); }
    std::function<void()> onChange;
    std::function<void()> onGoodbye;

    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override { note(*object); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* object) override { note(*object); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* object) override { note(*object); }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override { note(*object); }
    void objectErased(const AcDbDatabase*, const AcDbObject* object, Adesk::Boolean) override { note(*object); }
    void headerSysVarChanged(const AcDbDatabase*, const ACHAR* name, Adesk::Boolean) override;
    void goodbye(const AcDbDatabase*) override;

private:
    void note(const AcDbObject& object);
    void noteEntity(const AcDbEntity& entity);
    void tell();

    AcDbDatabase* m_database;
};
