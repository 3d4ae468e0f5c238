#include "ui/script/ScriptReader.h"

#include <QFile>
#include <QFileInfo>

#include "ui/script/ScriptError.h"

namespace {

/// Where the input that begins a text ends.
qsizetype inputEnd(const QString& text)
{
    qsizetype from = 0;
    if (text.startsWith(u'(') && (from = expressionEnd(text)) < 0)
        return text.size(); // never closed: AutoLISP tells
    if (from > 0 && from < text.size() && text[from] == u'(')
        return from; // the next expression follows without a blank
    if (text.startsWith(u'"'))
        from = text.indexOf(u'"', 1) + 1;
    const qsizetype end = text.indexOf(u' ', from);
    return end < 0 ? text.size() : end;
}

QByteArray standardInput()
{
    QFile file;
    if (!file.open(stdin, QIODevice::ReadOnly))
        throw ScriptError(QStringLiteral("lecture impossible de l'entrée standard."));
    return file.readAll();
}

} // namespace

void ScriptReader::open(const QString& path)
{
    // Those that are over count: a script that ends by calling itself would go on for ever.
    constexpr std::size_t deepest = 100;
    if (m_files.size() >= deepest)
        throw ScriptError(QStringLiteral("plus de %1 scripts s'appellent l'un l'autre.").arg(deepest));
    const bool typed = path == u"-";
    m_files.push_back({typed ? QStringLiteral("entrée standard") : path,
                       scriptLines(typed ? standardInput() : contentOfFile(path)), 0, std::nullopt});
}

std::size_t ScriptReader::top() const
{
    std::size_t i = m_files.size() - 1;
    while (i > 0 && m_files[i].isOver())
        --i;
    return i;
}

bool ScriptReader::atEnd() const
{
    return m_files[top()].isOver();
}

const QString& ScriptReader::peek() const
{
    const File& file = m_files[top()];
    return file.rest ? *file.rest : file.lines[file.next].text;
}

QString ScriptReader::takeLine()
{
    m_taken = top();
    File& file = m_files[m_taken];
    QString text = peek();
    if (!file.rest)
        ++file.next;
    file.rest.reset();
    return text;
}

QString ScriptReader::takeInput()
{
    const QString text = takeLine();
    const qsizetype end = inputEnd(text);
    if (end < text.size())
        putBack(text.mid(text[end] == u' ' ? end + 1 : end));
    return text.left(end);
}

QString ScriptReader::place() const
{
    const File& file = m_files[m_taken];
    const int line = file.next > 0 ? file.lines[file.next - 1].number : 0;
    return QStringLiteral("%1, ligne %2").arg(file.path).arg(line);
}

QString ScriptReader::folder() const
{
    return QFileInfo(m_files[m_taken].path).absolutePath();
}
