#pragma once

#include <deque>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "ed/input/EditorInput.h"
#include "ed/Kernel.h"

#include "dbmain.h"
#include "TestFolder.h"

/// Answers as a person would type them, in order. "ESC" is Escape.
class TypedAnswers : public InputSource {
public:
    InputAnswer answer(const InputRequest& request) override;
    void refused(const InputRequest& request, const std::wstring& reason) override;
    bool isEchoed() const override { return false; }

    std::deque<std::wstring> texts;
    std::vector<std::wstring> prompts;  ///< all that was asked
    std::vector<std::wstring> refusals; ///< why an answer did not do
};

/// The kernel with the host's commands, an empty drawing, and a folder of its own.
class CommandTest : public testing::Test {
protected:
    CommandTest();
    ~CommandTest() override;

    /// Types lines at the command line until they are used up. A command that still waits then is cancelled.
    void type(const std::vector<std::wstring>& lines);
    /// The same from one text: lines are parted by " | ", "" is Enter: "LIGNE | 0,0 | 10,0 | ".
    void typed(const std::wstring& lines);

    /// Each entity of model space on a line: its kind, then its geometry with four decimals.
    static std::vector<std::string> entities();
    /// What a save would write.
    static std::string bytes();
    static AcDbDatabase& drawing();
    static std::wstring variableText(const wchar_t* name);
    /// All that was printed since it was asked last.
    std::wstring printed();
    std::filesystem::path file(const char* name) const { return m_folder / name; }
    void write(const char* name, const std::string& text) const { m_folder.write(name, text); }
    std::string read(const char* name) const { return m_folder.read(name); }

    TypedAnswers user;

private:
    Kernel m_kernel;
    TestFolder m_folder;
    std::wstring m_printed;
};
