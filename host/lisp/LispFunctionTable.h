#pragma once

#include <map>
#include <string>
#include <vector>

#include "rx/ModuleTable.h"

#include "acdocman.h"

/// A function that a module defined.
struct LispFunction {
    std::wstring name; ///< as the module spelled it
    LoadedModule* module = nullptr;
    short code = 0;
};

/// The functions defined in one document. Letter case does not count in names.
class LispFunctionTable {
public:
    static LispFunctionTable& of(AcApDocument& document);

    /// False for a code below 0 or a name that AutoLISP cannot read. A name that is there already changes hands.
    bool define(const std::wstring& name, LoadedModule& module, int code);
    /// False when the module did not define it with that code.
    bool undefine(const std::wstring& name, const LoadedModule& module, int code);
    /// Null when there is none. For the command XXX look for "C:XXX".
    const LispFunction* find(const std::wstring& name) const;
    void forget(const LoadedModule& module);
    /// In alphabetical order.
    std::vector<std::wstring> names() const;

private:
    std::map<std::wstring, LispFunction> m_functions; // by lower-case name
};
