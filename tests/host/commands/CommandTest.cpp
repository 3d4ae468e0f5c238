#include "CommandTest.h"

#include "commands/CommandTable.h"
#include "commands/Variables.h"
#include "db/DatabaseImpl.h"
#include "db/ObjectOpening.h"
#include "ed/input/CommandLine.h"
#include "rx/Console.h"

#include "Drawing.h"
#include "EntityTexts.h"

InputAnswer TypedAnswers::answer(const InputRequest& request)
{
    InputAnswer answer;
    prompts.push_back(request.prompt);
    if (texts.empty())
        return answer; // Escape
    answer.text = texts.front();
    answer.kind = answer.text == L"ESC" ? InputAnswer::Kind::cancel : InputAnswer::Kind::text;
    texts.pop_front();
    return answer;
}

void TypedAnswers::refused(const InputRequest&, const std::wstring& reason)
{
    refusals.push_back(reason);
}

CommandTest::CommandTest()
{
    static const bool registered = [] {
        registerHostCommands();
        return true;
    }();
    EXPECT_TRUE(registered);
    Console::instance().setSink([this](const std::wstring& text) { m_printed += text; });
    DocumentList::instance().create();
    setVariable(L"AUNITS", short{0}); // degrees
    setVariable(L"CIRCLERAD", 0.0);
    setVariable(L"INSNAME", std::wstring());
    drawing().impl().undo().clear();
}

CommandTest::~CommandTest()
{
    EXPECT_EQ(ObjectOpening::openCount(), 0U) << "left open";
    DocumentList::instance().closeAll();
    Console::instance().setSink(nullptr);
}

void CommandTest::type(const std::vector<std::wstring>& lines)
{
    user.texts.assign(lines.begin(), lines.end());
    const EditorInput::Source source(user);
    while (!user.texts.empty()) {
        CommandOutcome outcome;
        CommandLine::instance().runNext(&outcome);
        EXPECT_EQ(outcome.leftOpen, std::vector<std::wstring>()) << "left open";
        EXPECT_EQ(outcome.newBuffers, 0);
        EXPECT_EQ(outcome.newTexts, 0);
    }
}

void CommandTest::typed(const std::wstring& lines)
{
    constexpr std::wstring_view between = L" | ";
    std::vector<std::wstring> parts;
    std::size_t from = 0;
    for (std::size_t at = 0; at != std::wstring::npos; from = at + between.size()) {
        at = lines.find(between, from);
        parts.push_back(lines.substr(from, at == std::wstring::npos ? at : at - from));
        if (at == std::wstring::npos)
            break;
    }
    type(parts);
}

AcDbDatabase& CommandTest::drawing()
{
    return *curDoc()->database();
}

std::vector<std::string> CommandTest::entities()
{
    std::vector<std::string> texts;
    for (const AcDbObjectId id : entitiesOf(drawing().currentSpaceId()))
        texts.push_back(entityText(*AcDbObjectPointer<AcDbEntity>(id).object()));
    return texts;
}

std::string CommandTest::bytes()
{
    return savedBytes(drawing());
}

std::wstring CommandTest::variableText(const wchar_t* name)
{
    return variable<std::wstring>(name);
}

std::wstring CommandTest::printed()
{
    return std::exchange(m_printed, {});
}
