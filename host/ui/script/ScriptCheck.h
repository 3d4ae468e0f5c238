#pragma once

#include <optional>
#include <QString>

/// A check of a script: "? subject = value ± tolerance".
struct ScriptCheck {
    enum class Relation { equal, different, contains };

    QString subject;
    Relation relation = Relation::equal;
    QString value; ///< without the quotes it may stand between
    std::optional<double> tolerance;

    /// @param text behind the "?". @throws ScriptError when it is no check.
    static ScriptCheck parse(const QString& text);
    /// Whether a text has the form of a check at all: a lone "?" is an answer to some commands.
    static bool looksLikeOne(const QString& text);

    /// Texts are compared as such, without the blanks around them; as numbers when both are. With a tolerance, several
    /// numbers in a text are compared one by one.
    bool isMetBy(const QString& actual) const;
    /// @throws ScriptError that shows what stood there.
    void verify(const QString& actual) const;
};

/// The value that a script writes: blanks around it dropped, then quotes, in which \" and \n stand for themselves.
QString scriptValue(const QString& written);
