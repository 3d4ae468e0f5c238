#include "ed/input/PickFirstRule.h"

#include "ed/input/PickFirst.h"
#include "ed/SystemVariables.h"
#include "rx/HostSession.h"

namespace {

/// Of the commands under way.
struct CommandsUnderWay {
    std::vector<Adesk::Int32> flags;
};

std::vector<Adesk::Int32>& flagsUnderWay()
{
    return HostSession::part<CommandsUnderWay>().flags;
}

} // namespace

PickFirstRule::PickFirstRule()
{
    CommandRunner::instance().addWatcher(*this);
}

PickFirstRule::~PickFirstRule()
{
    CommandRunner::instance().removeWatcher(*this);
}

void PickFirstRule::commandStarts(const std::wstring&, Adesk::Int32 flags, std::size_t depth)
{
    flagsUnderWay().push_back(flags);
    AcApDocument* const document = curDoc();
    if (depth > 1 || !document)
        return;
    PickFirst& selected = PickFirst::of(*document);
    if ((flags & (ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW | ACRX_CMD_DEFUN | ACRX_CMD_TRANSPARENT)) == 0)
        selected.clear();
    m_atStart = selected.objects();
}

void PickFirstRule::commandEnds(const std::wstring&, Adesk::Int32 flags, std::size_t depth)
{
    if (!flagsUnderWay().empty())
        flagsUnderWay().pop_back();
    AcApDocument* const document = curDoc();
    if (depth > 1 || !document)
        return;
    PickFirst& selected = PickFirst::of(*document);
    selected.setBeingMade({});
    if ((flags & (ACRX_CMD_REDRAW | ACRX_CMD_TRANSPARENT)) != 0)
        return;
    if ((flags & ACRX_CMD_DEFUN) == 0 || selected.objects() == m_atStart)
        selected.clear();
}

bool usesPickFirst()
{
    const auto value = SystemVariables::instance().value(L"PICKFIRST");
    const short* const isOn = value ? std::get_if<short>(&*value) : nullptr;
    const auto& flags = flagsUnderWay();
    return (!isOn || *isOn != 0) && !flags.empty() && (flags.back() & ACRX_CMD_USEPICKSET) != 0;
}
