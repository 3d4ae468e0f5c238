#include "ui/script/ScriptText.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "ed/input/CommandLine.h"
#include "platform/CodePage.h"
#include "ui/script/ScriptError.h"

namespace {

QString withoutBlanksBefore(const QString& line)
{
    qsizetype start = 0;
    while (start < line.size() && line[start].isSpace())
        ++start;
    return line.mid(start);
}

qsizetype lineEnd(const QString& text, qsizetype from)
{
    const qsizetype end = text.indexOf(u'\n', from);
    return end < 0 ? text.size() : end;
}

/// Whether a line is AutoLISP: an expression, or a check of its value.
bool beginsExpression(const QString& line)
{
    return line.startsWith(u'(') || (line.startsWith(u'?') && withoutBlanksBefore(line.mid(1)).startsWith(u'('));
}

} // namespace

QString scriptText(const QByteArray& content)
{
    return QString::fromStdWString(platform::wideFromFile(content.toStdString()));
}

QByteArray contentOfFile(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        throw ScriptError(QStringLiteral("%1 : lecture impossible du fichier.").arg(path));
    return file.readAll();
}

qsizetype expressionEnd(const QString& text)
{
    bool quotes = false;
    int open = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quotes && c == u'\\')
            ++i;
        else if (c == u'"')
            quotes = !quotes;
        else if (quotes)
            continue;
        else if (c == u';')
            i = lineEnd(text, i);
        else if (c == u'(')
            ++open;
        else if (c == u')' && --open <= 0)
            return i + 1;
    }
    return -1;
}

std::vector<ScriptLine> scriptLines(const QByteArray& content)
{
    std::vector<ScriptLine> lines;
    QString text = scriptText(content);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    const QStringList all = text.isEmpty() ? QStringList() : text.split(u'\n');
    for (qsizetype i = 0; i < all.size(); ++i) {
        ScriptLine line{static_cast<int>(i) + 1, withoutBlanksBefore(all[i])};
        if (line.text.startsWith(u';'))
            continue;
        while (beginsExpression(line.text) && isOpenExpression(line.text.toStdWString()) && i + 1 < all.size())
            line.text += u'\n' + all[++i];
        lines.push_back(std::move(line));
    }
    return lines;
}
