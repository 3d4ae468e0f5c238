#include "ed/input/ViewHistory.h"

#include "ap/DocumentData.h"

ViewHistory& ViewHistory::of(AcApDocument& document)
{
    static DocumentData<ViewHistory> histories;
    return histories.of(document);
}

void ViewHistory::remember()
{
    constexpr std::size_t most = 100;
    const CurrentView now = CurrentView::get();
    if (!m_former.empty() && m_former.back().center == now.center && m_former.back().height == now.height)
        return;
    m_former.push_back(now);
    if (m_former.size() > most)
        m_former.erase(m_former.begin());
}

bool ViewHistory::goBack()
{
    if (m_former.empty())
        return false;
    const CurrentView former = m_former.back();
    m_former.pop_back();
    return CurrentView::set(former.center, former.height);
}
