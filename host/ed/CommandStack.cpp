#include "ed/CommandStack.h"

#include <algorithm>
#include <set>

#include "platform/LetterCase.h"
#include "rx/SystemRegistry.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommand, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

using platform::equalNoCase;

namespace {

constexpr const ACHAR* kRegistryKey = L"ACAD_REGISTERED_COMMANDS";

const bool registered =
    registerAtStart(kRegistryKey, []() -> AcRxObject* { return std::make_unique<CommandStack>().release(); });

bool isEmpty(const ACHAR* text)
{
    return !text || !*text;
}

class CommandIterator : public AcEdCommandIterator {
public:
    struct Entry {
        std::wstring group;
        const AcEdCommand* command;
    };
    explicit CommandIterator(std::vector<Entry> entries) : m_entries(std::move(entries)) {}
    bool done() const override { return m_at >= m_entries.size(); }
    bool next() override
    {
        ++m_at;
        return !done();
    }
    const AcEdCommand* command() const override { return done() ? nullptr : m_entries[m_at].command; }
    const ACHAR* commandGroup() const override { return done() ? nullptr : m_entries[m_at].group.c_str(); }

private:
    std::vector<Entry> m_entries;
    std::size_t m_at = 0;
};

} // namespace

CommandStack& CommandStack::instance()
{
    return *static_cast<CommandStack*>(acedRegCmds);
}

void CommandStack::addAlias(const std::wstring& alias, const std::wstring& globalName)
{
    m_aliases[platform::lowerCase(alias)] = globalName;
}

Command* CommandStack::lookupAlias(const std::wstring& alias)
{
    const auto found = m_aliases.find(platform::lowerCase(alias));
    return found == m_aliases.end() ? nullptr : lookupGlobalCmd(found->second.c_str());
}

CommandStack::CommandStack()
{
    ModuleTable::instance().whenUnloaded([this](const LoadedModule& module) { forget(module); });
}

std::vector<CommandStack::Group>::iterator CommandStack::group(const ACHAR* name)
{
    return std::find_if(m_groups.begin(), m_groups.end(),
                        [name](const Group& g) { return name && equalNoCase(g.name, name); });
}

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                           Adesk::Int32 commandFlags, AcRxFunctionPtr functionAddr,
                                           AcEdUIContext* UIContext, int fcode, HINSTANCE hResourceHandle,
                                           AcEdCommand** added)
{
    if (isEmpty(groupName) || isEmpty(globalName) || isEmpty(localName) || !functionAddr)
        return Acad::eInvalidInput;
    auto place = group(groupName);
    if (place == m_groups.end())
        place = m_groups.insert(m_groups.begin(), Group{groupName, {}});
    const auto sameName = [globalName, localName](const auto& command) {
        return equalNoCase(command->globalName(), globalName) || equalNoCase(command->localName(), localName);
    };
    if (std::any_of(place->commands.begin(), place->commands.end(), sameName))
        return Acad::eDuplicateKey;
    place->commands.push_back(std::make_unique<Command>(globalName, localName, commandFlags, functionAddr, UIContext,
                                                        fcode, hResourceHandle, ModuleTable::instance().running()));
    if (added)
        *added = place->commands.back().get();
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* groupName, const ACHAR* globalName)
{
    const auto place = group(groupName);
    if (place == m_groups.end() || !globalName)
        return Acad::eKeyNotFound;
    const auto removed = std::erase_if(
        place->commands, [globalName](const auto& command) { return equalNoCase(command->globalName(), globalName); });
    return removed > 0 ? Acad::eOk : Acad::eKeyNotFound;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName)
{
    const auto place = group(groupName);
    if (place == m_groups.end())
        return Acad::eKeyNotFound;
    m_groups.erase(place);
    return Acad::eOk;
}

void CommandStack::forget(const LoadedModule& module)
{
    for (Group& g : m_groups)
        std::erase_if(g.commands, [&module](const auto& command) { return command->module() == &module; });
    std::erase_if(m_groups, [](const Group& g) { return g.commands.empty(); });
}

Command* CommandStack::lookupGlobalCmd(const ACHAR* globalName)
{
    return lookupCmd(globalName, true, false);
}

Command* CommandStack::lookupLocalCmd(const ACHAR* localName)
{
    return lookupCmd(localName, false, true);
}

Command* CommandStack::lookupCmd(const ACHAR* name, bool globalLookup, bool localLookup)
{
    if (isEmpty(name))
        return nullptr;
    for (const Group& g : m_groups)
        for (const auto& command : g.commands)
            if ((globalLookup && equalNoCase(command->globalName(), name)) ||
                (localLookup && equalNoCase(command->localName(), name)))
                return command.get();
    return nullptr;
}

Command* CommandStack::lookupCmd(const ACHAR* name, const ACHAR* groupName)
{
    const auto place = group(groupName);
    if (place == m_groups.end() || isEmpty(name))
        return nullptr;
    for (const auto& command : place->commands)
        if (equalNoCase(command->globalName(), name) || equalNoCase(command->localName(), name))
            return command.get();
    return nullptr;
}

Acad::ErrorStatus CommandStack::popGroupToTop(const ACHAR* groupName)
{
    const auto place = group(groupName);
    if (place == m_groups.end())
        return Acad::eKeyNotFound;
    std::rotate(m_groups.begin(), place, place + 1);
    return Acad::eOk;
}

AcEdCommandIterator* CommandStack::iterator()
{
    std::vector<CommandIterator::Entry> entries;
    for (const Group& g : m_groups)
        for (const auto& command : g.commands)
            entries.push_back({g.name, command.get()});
    return new CommandIterator(std::move(entries));
}

std::vector<std::wstring> CommandStack::localNames() const
{
    std::vector<std::wstring> names;
    std::set<std::wstring> seen;
    for (const Group& g : m_groups)
        for (const auto& command : g.commands)
            if (seen.insert(platform::lowerCase(command->localName())).second)
                names.emplace_back(command->localName());
    return names;
}
