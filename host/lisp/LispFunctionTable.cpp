#include "lisp/LispFunctionTable.h"

#include "ap/DocumentData.h"
#include "ap/DocumentList.h"
#include "platform/LetterCase.h"

namespace {

constexpr int kLastCode = 32767;

DocumentData<LispFunctionTable>& tables()
{
    static DocumentData<LispFunctionTable> ofDocuments;
    return ofDocuments;
}

void forgetEverywhere(const LoadedModule& module)
{
    for (const auto& document : DocumentList::instance().documents())
        tables().of(*document).forget(module);
}

bool isSymbol(const std::wstring& name)
{
    for (const wchar_t c : name)
        if (c <= L' ' || std::wstring_view(L"()'\";").find(c) != std::wstring_view::npos)
            return false;
    return !name.empty() && name != L".";
}

} // namespace

LispFunctionTable& LispFunctionTable::of(AcApDocument& document)
{
    static const bool watching = [] {
        ModuleTable::instance().whenUnloaded(forgetEverywhere);
        return true;
    }();
    static_cast<void>(watching);
    return tables().of(document);
}

bool LispFunctionTable::define(const std::wstring& name, LoadedModule& module, int code)
{
    if (!isSymbol(name) || code < 0 || code > kLastCode)
        return false;
    m_functions[platform::lowerCase(name)] = {name, &module, static_cast<short>(code)};
    return true;
}

bool LispFunctionTable::undefine(const std::wstring& name, const LoadedModule& module, int code)
{
    const auto found = m_functions.find(platform::lowerCase(name));
    if (found == m_functions.end() || found->second.module != &module || found->second.code != code)
        return false;
    m_functions.erase(found);
    return true;
}

const LispFunction* LispFunctionTable::find(const std::wstring& name) const
{
    const auto found = m_functions.find(platform::lowerCase(name));
    return found == m_functions.end() ? nullptr : &found->second;
}

void LispFunctionTable::forget(const LoadedModule& module)
{
    std::erase_if(m_functions, [&module](const auto& entry) { return entry.second.module == &module; });
}

std::vector<std::wstring> LispFunctionTable::names() const
{
    std::vector<std::wstring> names;
    for (const auto& [key, function] : m_functions)
        names.push_back(function.name);
    return names;
}
