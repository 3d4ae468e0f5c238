// Any bytes as a script: its lines are read, its checks understood and its inputs taken up to the end.

#include <cstdlib>

#include "ui/script/ScriptCheck.h"
#include "ui/script/ScriptError.h"
#include "ui/script/ScriptReader.h"
#include "ui/script/ScriptText.h"

#include "TestFolder.h"

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// A check that has a form at all is understood or refused with a reason, and met by the value that it asks for.
void readCheck(const QString& text)
{
    try {
        const ScriptCheck check = ScriptCheck::parse(text);
        require(ScriptCheck::looksLikeOne(text));
        require(check.isMetBy(check.value) == (check.relation != ScriptCheck::Relation::different));
        check.verify(QStringLiteral("12.5"));
    } catch (const ScriptError& error) {
        require(!error.reason().isEmpty());
    }
}

void readLines(const QByteArray& content)
{
    int number = 0;
    for (const ScriptLine& line : scriptLines(content)) {
        require(line.number > number);
        number = line.number;
        require(line.text.isEmpty() || (!line.text[0].isSpace() && line.text[0] != u';'));
        require(expressionEnd(line.text) <= line.text.size());
        readCheck(line.text.startsWith(u'?') ? line.text.mid(1) : line.text);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const TestFolder folder;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    readLines(QByteArray::fromStdString(bytes));

    ScriptReader script;
    script.open(QString::fromStdString(folder.write("essai.scr", bytes).string()));
    for (std::size_t taken = 0; !script.atEnd(); ++taken) {
        require(taken <= 2 * size);
        script.takeInput();
        require(!script.place().isEmpty());
    }
    return 0;
}
