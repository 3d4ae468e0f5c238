#include "ui/script/ScriptCheck.h"

#include <cmath>
#include <QRegularExpression>
#include <QStringList>

#include "ui/script/Caption.h"
#include "ui/script/ScriptError.h"
#include "ui/script/ScriptText.h"

namespace {

struct Operator {
    qsizetype at = -1;
    qsizetype length = 0;
    ScriptCheck::Relation relation = ScriptCheck::Relation::equal;
};

/// The first operator behind the subject.
Operator findOperator(const QString& text)
{
    static const QRegularExpression operators(QStringLiteral("=|≠|!=|\\scontient\\s"));
    const qsizetype start = text.startsWith(u'(') ? expressionEnd(text) : 0;
    const QRegularExpressionMatch match = start < 0 ? QRegularExpressionMatch() : operators.match(text, start);
    if (!match.hasMatch())
        return {};
    const QString found = match.captured().trimmed();
    const auto relation = found == u"="          ? ScriptCheck::Relation::equal
                          : found == u"contient" ? ScriptCheck::Relation::contains
                                                 : ScriptCheck::Relation::different;
    return {match.capturedStart(), match.capturedLength(), relation};
}

std::optional<double> number(const QString& text)
{
    bool valid = false;
    const double value = text.toDouble(&valid); // C locale
    return valid ? std::optional(value) : std::nullopt;
}

/// Whether two texts are the same numbers, up to the tolerance; nothing when one of them is no number.
std::optional<bool> sameNumber(const QString& one, const QString& other, double tolerance)
{
    const auto a = number(one), b = number(other);
    if (!a || !b)
        return std::nullopt;
    return std::abs(*a - *b) <= tolerance;
}

/// Numbers among parentheses, commas and words: "(1.0 2.0)" holds two.
bool sameParts(const QString& one, const QString& other, double tolerance)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,;()]+"));
    const QStringList a = one.split(separators, Qt::SkipEmptyParts), b = other.split(separators, Qt::SkipEmptyParts);
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i)
        if (!sameNumber(a[i], b[i], tolerance).value_or(a[i] == b[i]))
            return false;
    return true;
}

/// A text as a message may show it: with its line breaks, on one line.
QString shown(QString text)
{
    return text.replace(u'\n', QStringLiteral("\\n"));
}

} // namespace

QString scriptValue(const QString& written)
{
    const QString value = written.trimmed();
    if (value.size() < 2 || !value.startsWith(u'"') || !value.endsWith(u'"'))
        return value;
    QString plain;
    for (qsizetype i = 1; i + 1 < value.size(); ++i) {
        const bool escape = value[i] == u'\\' && i + 2 < value.size();
        if (escape)
            ++i;
        plain += escape && value[i] == u'n' ? QChar(u'\n') : value[i];
    }
    return plain;
}

bool ScriptCheck::looksLikeOne(const QString& text)
{
    return findOperator(text.trimmed()).at > 0;
}

ScriptCheck ScriptCheck::parse(const QString& text)
{
    static const QRegularExpression ending(QStringLiteral("±\\s*([0-9.eE+-]+)\\s*$"));
    const QString trimmed = text.trimmed();
    const Operator found = findOperator(trimmed);
    if (found.at <= 0)
        throw ScriptError(
            QStringLiteral("« ? %1 » n'est pas un contrôle : « ? sujet = valeur » est attendu.").arg(trimmed));
    ScriptCheck check;
    check.subject = trimmed.left(found.at).trimmed();
    check.relation = found.relation;
    QString value = trimmed.mid(found.at + found.length).trimmed();
    if (const auto match = ending.match(value); match.hasMatch()) {
        check.tolerance = number(match.captured(1));
        if (!check.tolerance)
            throw ScriptError(QStringLiteral("« %1 » n'est pas une tolérance.").arg(match.captured(1)));
        value.truncate(match.capturedStart());
    }
    check.value = scriptValue(value);
    return check;
}

bool ScriptCheck::isMetBy(const QString& actual) const
{
    const QString is = typedText(actual), wanted = typedText(value);
    if (relation == Relation::contains)
        return is.contains(wanted);
    bool same = is == wanted;
    if (!same)
        same = sameNumber(is, wanted, tolerance.value_or(0.0)).value_or(tolerance && sameParts(is, wanted, *tolerance));
    return same == (relation == Relation::equal);
}

void ScriptCheck::verify(const QString& actual) const
{
    if (isMetBy(actual))
        return;
    const QString wanted = relation == Relation::equal       ? QStringLiteral("attendu")
                           : relation == Relation::different ? QStringLiteral("attendu : autre chose que")
                                                             : QStringLiteral("attendu : un texte qui contient");
    const QString margin = tolerance ? QStringLiteral(" ± %1").arg(*tolerance) : QString();
    throw ScriptError(
        QStringLiteral("%1 vaut « %2 » (%3 « %4 »%5).").arg(subject, shown(actual), wanted, shown(value), margin));
}
