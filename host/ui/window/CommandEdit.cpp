#include "ui/window/CommandEdit.h"

#include <algorithm>
#include <QKeyEvent>

#include "ui/window/CommandNames.h"
#include "ui/window/CompletionList.h"

namespace {

constexpr qsizetype mostSentLines = 200;
constexpr int mostCompletions = 50;

} // namespace

CommandEdit::CommandEdit(QWidget* parent) : QLineEdit(parent), m_completions(new CompletionList(this))
{
    setObjectName(QStringLiteral("ligneCommande"));
    connect(this, &QLineEdit::textEdited, this, &CommandEdit::complete);
    connect(m_completions, &CompletionList::clickedOn, this, [this](const QString& name) {
        take(name);
        send();
    });
}

void CommandEdit::setSentLines(const QStringList& lines)
{
    m_sent = lines;
    m_recalled = m_sent.size();
}

void CommandEdit::complete(const QString& text)
{
    const bool completes = m_completing && !text.isEmpty() && !text.startsWith(u'(');
    m_completions->offer(completes ? commandNamesFrom(text, mostCompletions) : QStringList(), *this);
}

void CommandEdit::take(const QString& name)
{
    m_completions->hide();
    setText(name);
}

void CommandEdit::send()
{
    if (const QString chosen = m_completions->chosen(); !chosen.isEmpty())
        setText(chosen);
    m_completions->hide();
    const QString line = text();
    clear();
    if (!line.trimmed().isEmpty() && (m_sent.isEmpty() || m_sent.last() != line))
        m_sent.append(line);
    if (m_sent.size() > mostSentLines)
        m_sent.removeFirst();
    m_recalled = m_sent.size();
    emit sent(line);
}

void CommandEdit::recall(int by)
{
    m_recalled = std::clamp<qsizetype>(m_recalled + by, 0, m_sent.size());
    setText(m_recalled < m_sent.size() ? m_sent.at(m_recalled) : QString());
}

void CommandEdit::arrow(int by)
{
    if (m_completions->isVisible())
        m_completions->step(by);
    else
        recall(by);
}

bool CommandEdit::blankSends() const
{
    const QString typed = text();
    return !m_takesBlanks && !typed.startsWith(u'(') && !typed.startsWith(u'"');
}

/// In an empty line there is nothing to delete, undo or choose: these keys are the window's.
bool CommandEdit::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && text().isEmpty()) {
        event->ignore();
        return false;
    }
    return QLineEdit::event(event);
}

void CommandEdit::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return send();
    case Qt::Key_Escape:
        m_completions->hide();
        clear();
        emit cancelled();
        return;
    case Qt::Key_Up:
        return arrow(-1);
    case Qt::Key_Down:
        return arrow(1);
    case Qt::Key_Tab:
        if (m_completions->isVisible()) {
            if (m_completions->chosen().isEmpty())
                m_completions->step(1);
            take(m_completions->chosen());
        }
        return;
    case Qt::Key_Space:
        if (blankSends())
            return send();
        break;
    default:
        break;
    }
    QLineEdit::keyPressEvent(event);
}

void CommandEdit::focusOutEvent(QFocusEvent* event)
{
    m_completions->hide();
    QLineEdit::focusOutEvent(event);
}
