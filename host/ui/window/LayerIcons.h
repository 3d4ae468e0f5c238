#pragma once

#include <map>
#include <QIcon>

/// Small pictures of the states of a layer, drawn in the colours of the application. They must go before it does.
class LayerIcons {
public:
    LayerIcons();

    const QIcon& current() const { return m_current; }
    const QIcon& bulb(bool lit) const { return lit ? m_lit : m_unlit; }
    const QIcon& frost(bool frozen) const { return frozen ? m_frozen : m_thawed; }
    const QIcon& padlock(bool locked) const { return locked ? m_locked : m_unlocked; }
    /// A colour by its index.
    const QIcon& swatch(int color) const;

private:
    QIcon m_current, m_lit, m_unlit, m_frozen, m_thawed, m_locked, m_unlocked;
    mutable std::map<int, QIcon> m_swatches; ///< those asked for so far
};
