#include "CommandTest.h"

#include <cstdlib>
#include <fstream>

#include "commands/CommandTable.h"
#include "commands/Variables.h"
#include "db/DatabaseImpl.h"
#include "db/ObjectOpening.h"
#include "db/SavePlan.h"
#include "ed/input/CommandLine.h"
#include "rx/Console.h"

#include "dbsymtb.h"
#include "EntityTexts.h"

namespace fs = std::filesystem;

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
    std::string name = (fs::temp_directory_path() / "vela-commandes-XXXXXX").string();
    m_folder = mkdtemp(name.data());
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
    fs::remove_all(m_folder);
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
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing().currentSpaceId());
    AcDbBlockTableRecordIterator* made = nullptr;
    space->newIterator(made);
    const std::unique_ptr<AcDbBlockTableRecordIterator> each(made);
    for (; !each->done(); each->step()) {
        AcDbObjectId id;
        each->getEntityId(id);
        const AcDbObjectPointer<AcDbEntity> entity(id);
        texts.push_back(entityText(*entity.object()));
    }
    return texts;
}

std::string CommandTest::bytes()
{
    std::string whole;
    const SavePlan plan(drawing().impl());
    for (const std::string_view piece : plan.pieces())
        whole += piece;
    return whole;
}

std::wstring CommandTest::variableText(const wchar_t* name)
{
    return variable<std::wstring>(name);
}

std::wstring CommandTest::printed()
{
    return std::exchange(m_printed, {});
}

void CommandTest::write(const char* name, const std::string& text) const
{
    std::ofstream(m_folder / name, std::ios::binary) << text;
}
