#pragma once

#include <QString>
#include <stdexcept>

/// Why a line of a script failed: French, without the place, which the runner adds.
class ScriptError : public std::runtime_error {
public:
    explicit ScriptError(const QString& reason) : std::runtime_error(reason.toStdString()) {}
    QString reason() const { return QString::fromUtf8(what()); }
};
