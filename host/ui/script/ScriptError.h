#pragma once

#include <QString>
#include <stdexcept>

/// Why a line of a script failed: French, without the place, which the runner adds.
class ScriptError : public std::runtime_error {
public:
    explicit ScriptError(const QString& reason) : std::runtime_error(reason.toStdString()), m_reason(reason) {}
    /// Whole: what() ends at a character 0, which a damaged script may hold.
    const QString& reason() const { return m_reason; }

private:
    QString m_reason;
};
