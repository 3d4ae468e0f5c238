#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "dbmain.h"

class AcDbDictionaryIterator;

/// Objects under names, in the order of the file. Names are told apart without regard to case.
class AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    AcRxObject* clone() const override { return new AcDbDictionary(*this); }

    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    /// Erased ones and names that lead nowhere are not counted.
    Adesk::UInt32 numEntries() const;
    /// Puts the object under the name; one already there is erased and replaced. The object stays open for write.
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    /// Takes the entry out; the object itself is erased only when the dictionary is its hard owner.
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(const ACHAR* name, AcDbObjectId& id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    bool setName(const ACHAR* oldName, const ACHAR* newName);
    Acad::ErrorStatus nameAt(AcDbObjectId id, ACHAR*& name) const;
    bool isTreatElementsAsHard() const { return m_hardOwner; }
    void setTreatElementsAsHard(bool hard);

    /// For the caller to delete.
    AcDbDictionaryIterator* newIterator() const;
    /// Every entry at once, whatever the opening; ids may be null or erased.
    std::vector<std::pair<std::wstring, AcDbObjectId>> entriesAsIds() const;

    AcDbDictionary() = default;

protected:
    AcDbDictionary(const AcDbDictionary& other) :
        AcDbObject(other),
        m_entries(other.m_entries),
        m_hardOwner(other.m_hardOwner),
        m_cloning(other.m_cloning)
    {
    }
    void ownedObjects(AcDbObjectIdArray& ids) const override;

private:
    friend struct DxfFieldsOfDictionary;
    friend class AcDbDictionaryIterator;
    struct Entry {
        std::wstring name;
        std::uint64_t handle = 0;
        Adesk::Int16 code = 0; // of the handle in the file (350, 360); 0 follows the dictionary's kind of ownership
        std::string spelling;  // of the name in the file, where it is not the one that would be written
    };
    using Entries = std::map<Adesk::UInt32, Entry>; // by order number: taking one out of many costs no move
    Entries::iterator find(const ACHAR* name) const;
    AcDbObjectId idOf(const Entry& entry) const;
    bool isErased(const Entry& entry) const;
    void add(Entry entry);
    Acad::ErrorStatus removeAt(Entries::iterator entry, AcDbObjectId& id);
    Entries::iterator findId(AcDbObjectId id) const;

    mutable Entries m_entries;
    bool m_hardOwner = false;
    Adesk::Int16 m_cloning = 1;
    mutable std::unordered_map<std::wstring, Adesk::UInt32> m_index; // folded names; built for large dictionaries
};

class AcDbDictionaryIterator {
public:
    const ACHAR* name() const;
    AcDbObjectId objectId() const;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead);
    bool done() const;
    bool next();

private:
    friend class AcDbDictionary;
    explicit AcDbDictionaryIterator(const AcDbDictionary* dictionary);
    void skipErased();
    const AcDbDictionary* m_dictionary;
    /// The entry it stands at, or the next one when that was taken out meanwhile.
    const AcDbDictionary::Entry* entry() const;
    Adesk::UInt32 m_order = 0;
};
