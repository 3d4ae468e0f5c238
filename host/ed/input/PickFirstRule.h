#pragma once

#include <vector>

#include "ed/CommandRunner.h"

#include "dbid.h"

/// What commands do to what was selected before them: one that takes it (ACRX_CMD_USEPICKSET) finds it, as AutoLISP
/// functions do; for others it is let go. Afterwards it is let go too, unless the command leaves it selected
/// (ACRX_CMD_REDRAW), or an AutoLISP function has selected something else.
class PickFirstRule : public CommandWatcher {
public:
    PickFirstRule();
    ~PickFirstRule() override;
    void commandStarts(const std::wstring& name, Adesk::Int32 flags, std::size_t depth) override;
    void commandEnds(const std::wstring& name, Adesk::Int32 flags, std::size_t depth) override;

private:
    std::vector<AcDbObjectId> m_atStart;
};

/// Whether the command that asks for a selection takes what was selected before it.
bool usesPickFirst();
