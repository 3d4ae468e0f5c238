#include "rx/HostSession.h"

#include <utility>

namespace {

HostSession* newest = nullptr;

/// That of the process is never ended: a module's own statics may still call the host at the very end.
HostSession& ofProcess()
{
    static HostSession& session = *std::make_unique<HostSession>().release();
    return session;
}

} // namespace

HostSession::HostSession() : m_before(std::exchange(newest, this)) {}

HostSession::~HostSession()
{
    while (!m_made.empty()) {
        const std::size_t slot = m_made.back();
        m_made.pop_back();
        // While a part ends it is still found.
        std::default_delete<Held>()(m_parts[slot].get());
        static_cast<void>(m_parts[slot].release());
    }
    newest = m_before;
}

HostSession& HostSession::current()
{
    return newest ? *newest : ofProcess();
}

std::size_t HostSession::takeSlot()
{
    static std::size_t taken = 0;
    return taken++;
}

void HostSession::keep(std::size_t slot, std::unique_ptr<Held> part)
{
    if (slot >= m_parts.size())
        m_parts.resize(slot + 1);
    m_parts[slot] = std::move(part);
    m_made.push_back(slot);
}
