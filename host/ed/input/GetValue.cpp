// acedInitGet; numbers, texts and keywords.

#include <algorithm>
#include <limits>

#include "ed/input/InputTexts.h"
#include "ed/input/Question.h"
#include "lisp/LispHooks.h"
#include "rx/Console.h"
#include "rx/TypedNumber.h"

#include "acdocman.h"
#include "acutmem.h"

namespace {

constexpr std::size_t kShortText = 132; // characters that a caller's text has room for, beside its zero

/// Copies what fits. RTINPUTTRUNCATED when some does not.
int giveShort(const std::wstring& text, ACHAR* result)
{
    const std::size_t length = std::min(text.size(), kShortText);
    std::copy_n(text.begin(), length, result);
    result[length] = L'\0';
    return length == text.size() ? RTNORM : RTINPUTTRUNCATED;
}

int giveNew(const std::wstring& text, ACHAR*& result)
{
    return acutNewString(text.c_str(), result) == Acad::eOk ? RTNORM : RTERROR;
}

int askText(bool takesBlanks, const ACHAR* prompt, std::wstring& text)
{
    Question question(InputRequest::Kind::string, prompt);
    if (!curDoc())
        return RTERROR;
    question.request.keywords.clear();
    question.request.takesBlanks = takesBlanks;
    question.request.takesNone = true;
    const int status = question.ask([&](const InputAnswer& answer) -> const wchar_t* {
        if (answer.kind != InputAnswer::Kind::text)
            return input_texts::answerWanted;
        text = answer.text;
        return nullptr;
    });
    if (status != RTNONE)
        return status;
    text.clear();
    return RTNORM;
}

int askKeyword(const ACHAR* prompt, std::wstring& keyword)
{
    Question question(InputRequest::Kind::keyword, prompt);
    if (!curDoc() || (question.request.keywords.empty() && !question.init().has(RSG_OTHER)))
        return RTERROR;
    const int status = question.ask([](const InputAnswer&) { return input_texts::keywordWanted; });
    if (status != RTKWORD)
        return status;
    keyword = EditorInput::instance().lastKeyword();
    return RTNORM;
}

} // namespace

int acedInitGet(int bits, const ACHAR* keywords)
{
    auto words = keywordsOf(keywords ? keywords : L"");
    if (!words) {
        EditorInput::instance().takeInitGet();
        return RTERROR;
    }
    EditorInput::instance().setInitGet({bits, std::move(*words)});
    return RTNORM;
}

int acedGetReal(const ACHAR* prompt, ads_real* result)
{
    Question question(InputRequest::Kind::real, prompt);
    if (!result || !curDoc())
        return RTERROR;
    return question.ask([&](const InputAnswer& answer) -> const wchar_t* {
        const auto number = answer.kind == InputAnswer::Kind::text ? typedNumber(answer.text) : std::nullopt;
        if (!number)
            return input_texts::realWanted;
        const wchar_t* const refused = refusedNumber(*number, question.init());
        if (!refused)
            *result = *number;
        return refused;
    });
}

int acedGetInt(const ACHAR* prompt, int* result)
{
    Question question(InputRequest::Kind::integer, prompt);
    if (!result || !curDoc())
        return RTERROR;
    return question.ask([&](const InputAnswer& answer) -> const wchar_t* {
        const auto number = answer.kind == InputAnswer::Kind::text ? typedNumber(answer.text) : std::nullopt;
        if (!number || answer.text.find_first_of(L".eE") != std::wstring::npos)
            return input_texts::integerWanted;
        if (*number < std::numeric_limits<short>::min() || *number > std::numeric_limits<short>::max())
            return input_texts::integerRange;
        const wchar_t* const refused = refusedNumber(*number, question.init());
        if (!refused)
            *result = static_cast<int>(*number);
        return refused;
    });
}

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result)
{
    std::wstring text;
    const int status = result ? askText(cronly != 0, prompt, text) : RTERROR;
    return status == RTNORM ? giveShort(text, result) : status;
}

int acedGetFullString(int cronly, const ACHAR* prompt, ACHAR*& result)
{
    std::wstring text;
    const int status = askText(cronly != 0, prompt, text);
    return status == RTNORM ? giveNew(text, result) : status;
}

int acedGetKword(const ACHAR* prompt, ACHAR* result)
{
    std::wstring keyword;
    const int status = result ? askKeyword(prompt, keyword) : RTERROR;
    return status == RTNORM ? giveShort(keyword, result) : status;
}

int acedGetFullKword(const ACHAR* prompt, ACHAR*& result)
{
    std::wstring keyword;
    const int status = askKeyword(prompt, keyword);
    return status == RTNORM ? giveNew(keyword, result) : status;
}

int acedGetInput(ACHAR* result)
{
    return result ? giveShort(EditorInput::instance().lastKeyword(), result) : RTERROR;
}

int acedGetFullInput(ACHAR*& result)
{
    return giveNew(EditorInput::instance().lastKeyword(), result);
}

int acedPrompt(const ACHAR* text)
{
    if (!text)
        return RTERROR;
    Console::instance().print(text);
    return RTNORM;
}

int acedUsrBrk()
{
    const auto& interrupted = LispHooks::instance().interrupted;
    return interrupted && interrupted() ? 1 : 0;
}
