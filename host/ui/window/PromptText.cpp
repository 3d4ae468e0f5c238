#include "ui/window/PromptText.h"

#include <algorithm>
#include <QStringList>

namespace {

bool isKeyword(const InputRequest& request, const QString& word)
{
    return std::ranges::any_of(request.keywords, [&word](const InputKeyword& keyword) {
        return word.compare(QString::fromStdWString(keyword.local), Qt::CaseInsensitive) == 0;
    });
}

QString link(const QString& word)
{
    const QString shown = word.toHtmlEscaped();
    return QStringLiteral("<a href=\"%1\">%1</a>").arg(shown);
}

/// What stands between two brackets: words parted by slashes.
QString withLinks(const InputRequest& request, const QString& options)
{
    QStringList words = options.split(u'/');
    for (QString& word : words)
        word = isKeyword(request, word.trimmed()) ? link(word.trimmed()) : word.toHtmlEscaped();
    return words.join(QStringLiteral(" / "));
}

} // namespace

QString promptAsRichText(const InputRequest& request)
{
    const QString prompt = QString::fromStdWString(request.prompt);
    const qsizetype open = prompt.indexOf(u'[');
    const qsizetype close = prompt.indexOf(u']', open);
    if (open < 0 || close < 0)
        return prompt.toHtmlEscaped();
    return prompt.left(open + 1).toHtmlEscaped() + withLinks(request, prompt.mid(open + 1, close - open - 1)) +
           prompt.mid(close).toHtmlEscaped();
}
