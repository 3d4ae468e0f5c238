#include "ui/window/CommandPanel.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "ed/input/CommandLine.h"
#include "ui/window/CommandEdit.h"
#include "ui/window/CommandInput.h"
#include "ui/window/PromptText.h"

namespace {

constexpr int mostLinesKept = 5000;

QPlainTextEdit* makeHistory(const QFont& font)
{
    auto* const history = new QPlainTextEdit;
    history->setObjectName(QStringLiteral("historique"));
    history->setReadOnly(true);
    history->setUndoRedoEnabled(false);
    history->setMaximumBlockCount(mostLinesKept);
    history->setFont(font);
    history->setFrameShape(QFrame::NoFrame);
    history->setFocusPolicy(Qt::ClickFocus);
    return history;
}

} // namespace

CommandPanel::CommandPanel(CommandInput& input, QWidget* parent) : QWidget(parent), m_input(input)
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_history = makeHistory(font);
    m_prompt = new QLabel;
    m_prompt->setObjectName(QStringLiteral("invite"));
    m_prompt->setTextFormat(Qt::RichText);
    m_prompt->setFont(font);
    m_edit = new CommandEdit(this);
    m_edit->setFont(font);
    m_edit->setFrame(false);

    auto* const line = new QHBoxLayout;
    line->setContentsMargins(6, 2, 6, 4);
    line->addWidget(m_prompt);
    line->addWidget(m_edit, 1);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(m_history, 1);
    all->addLayout(line);

    connect(m_edit, &CommandEdit::sent, this, &CommandPanel::send);
    connect(m_edit, &CommandEdit::cancelled, this, &CommandPanel::cancel);
    connect(m_prompt, &QLabel::linkActivated, &m_input, &CommandInput::type);
    connect(&m_input, &CommandInput::asked, this, &CommandPanel::showPrompt);
    connect(&m_input, &CommandInput::answered, m_prompt, &QLabel::clear);
}

/// An AutoLISP expression may run over several lines: it is sent once its parentheses are closed.
void CommandPanel::send(const QString& line)
{
    if (m_expression.isEmpty() && !line.startsWith(u'('))
        return m_input.type(line);
    m_expression += m_expression.isEmpty() ? line : u'\n' + line;
    if (isOpenExpression(m_expression.toStdWString())) {
        print(u'\n' + line);
        m_prompt->setText(QStringLiteral("(... "));
        return m_edit->setTakesBlanks(true);
    }
    m_input.type(std::exchange(m_expression, QString()));
}

void CommandPanel::cancel()
{
    if (std::exchange(m_expression, QString()).isEmpty())
        m_input.cancel();
    else if (m_input.request())
        showPrompt();
}

void CommandPanel::showPrompt()
{
    const InputRequest& request = *m_input.request();
    const QString prompt = promptAsRichText(request);
    if (m_prompt->text() != prompt)
        m_prompt->setText(prompt);
    m_edit->setCompleting(request.kind == InputRequest::Kind::command);
    m_edit->setTakesBlanks(request.takesBlanks);
    flush();
}

void CommandPanel::print(const QString& text)
{
    if (m_pending.isEmpty())
        QTimer::singleShot(0, this, &CommandPanel::flush);
    m_pending += text;
}

/// Texts come in thousands from a script: they are put in together.
void CommandPanel::flush()
{
    if (m_pending.isEmpty())
        return;
    if (m_history->document()->isEmpty() && m_pending.startsWith(u'\n'))
        m_pending.remove(0, 1);
    QTextCursor end(m_history->document());
    end.movePosition(QTextCursor::End);
    end.insertText(m_pending);
    m_pending.clear();
    QScrollBar* const bar = m_history->verticalScrollBar();
    bar->setValue(bar->maximum());
}

void CommandPanel::setHistoryVisible(bool visible)
{
    m_history->setVisible(visible);
}

bool CommandPanel::isHistoryHidden() const
{
    return m_history->isHidden();
}
