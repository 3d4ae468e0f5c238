#pragma once

#include <map>
#include <memory>
#include <string>

#include "rxboiler.h"

/// Named objects of the session. Letter case does not count in the names. The dictionary owns its objects.
class AcRxDictionary : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);

    /// The object under `key`, null when there is none.
    AcRxObject* at(const ACHAR* key) const;
    bool has(const ACHAR* key) const { return at(key) != nullptr; }
    /// Puts `object` under `key`. @return the object that was there, now the caller's, or null.
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object);
    /// Takes the object out. @return it, now the caller's, or null.
    AcRxObject* remove(const ACHAR* key);
    Adesk::UInt32 numEntries() const { return static_cast<Adesk::UInt32>(m_objects.size()); }

private:
    std::map<std::wstring, std::unique_ptr<AcRxObject>> m_objects; // by lower-case name
};
