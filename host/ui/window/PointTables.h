#pragma once

#include <cstdint>
#include <optional>
#include <QString>
#include <QStringList>

/// A survey point as the panel of tables shows it.
struct ShownPoint {
    QString name;
    int code = 0;
    double x = 0.0, y = 0.0;
    std::optional<double> z; ///< nothing when it is not known
    QString altitude;        ///< written with the decimals of its code
};

/// The point tables of the current document's project. The program that loads the survey module provides them: the
/// window knows nothing of the module. All of it is read anew at each call; places are 0-based.
class PointTables {
public:
    virtual ~PointTables() = default;
    virtual QStringList tables() const = 0;
    /// -1 when there is no project.
    virtual int current() const = 0;
    virtual void setCurrent(int table) = 0;
    virtual int count(int table) const = 0;
    /// Nothing when there is no such point any more.
    virtual std::optional<ShownPoint> point(int table, int place) const = 0;
    /// A number that changes with the project.
    virtual std::uint64_t state() const = 0;
    /// A number that changes with what was typed in the module's dialogs and is in no file.
    virtual std::uint64_t drafts() const { return 0; }
};
