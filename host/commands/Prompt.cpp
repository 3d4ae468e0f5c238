#include "commands/Prompt.h"

#include "commands/NumberTexts.h"
#include "commands/PointArray.h"
#include "ed/input/EditorInput.h"
#include "rx/Console.h"

#include "acdocman.h"
#include "acedads.h"
#include "acutmem.h"

namespace {

std::wstring lastKeyword()
{
    ACHAR* text = nullptr;
    if (acedGetFullInput(text) != RTNORM || !text)
        return {};
    std::wstring keyword = text;
    acutDelString(text);
    return keyword;
}

/// What an answer of the interface means; `given` is the value when there is one.
template <class Value>
Reply<Value> replyOf(int status, const Value& given)
{
    switch (status) {
    case RTNORM:
        return {given, L""};
    case RTKWORD:
        return {std::nullopt, lastKeyword()};
    case RTNONE:
        return {};
    default:
        throw CommandCancelled();
    }
}

const ads_real* addressOf(const std::optional<PointArray>& point)
{
    return point ? point->data : nullptr;
}

} // namespace

void Prompt::prepare() const
{
    acedInitGet(m_bits, m_keywords);
}

Reply<AcGePoint3d> Prompt::point()
{
    const std::optional<PointArray> base = m_base ? std::optional<PointArray>(*m_base) : std::nullopt;
    PointArray given;
    prepare();
    const int status = acedGetPoint(addressOf(base), m_prompt.c_str(), given.data);
    return replyOf(status, given.point());
}

Reply<AcGePoint3d> Prompt::corner()
{
    const PointArray base(m_base.value_or(AcGePoint3d::kOrigin));
    PointArray given;
    prepare();
    const int status = acedGetCorner(base.data, m_prompt.c_str(), given.data);
    return replyOf(status, given.point());
}

Reply<double> Prompt::distance()
{
    const std::optional<PointArray> base = m_base ? std::optional<PointArray>(*m_base) : std::nullopt;
    double given = 0.0;
    prepare();
    const int status = acedGetDist(addressOf(base), m_prompt.c_str(), &given);
    return replyOf(status, given);
}

Reply<double> Prompt::angle()
{
    const std::optional<PointArray> base = m_base ? std::optional<PointArray>(*m_base) : std::nullopt;
    double given = 0.0;
    prepare();
    const int status = acedGetAngle(addressOf(base), m_prompt.c_str(), &given);
    return replyOf(status, given);
}

Reply<double> Prompt::direction()
{
    const std::optional<PointArray> base = m_base ? std::optional<PointArray>(*m_base) : std::nullopt;
    double given = 0.0;
    prepare();
    const int status = acedGetOrient(addressOf(base), m_prompt.c_str(), &given);
    return replyOf(status, given);
}

Reply<double> Prompt::turn()
{
    Reply<double> given = real();
    if (given.value)
        given.value = *given.value * angleUnit();
    return given;
}

Reply<double> Prompt::real()
{
    double given = 0.0;
    prepare();
    const int status = acedGetReal(m_prompt.c_str(), &given);
    return replyOf(status, given);
}

Reply<int> Prompt::integer()
{
    int given = 0;
    prepare();
    const int status = acedGetInt(m_prompt.c_str(), &given);
    return replyOf(status, given);
}

std::wstring Prompt::keyword()
{
    prepare();
    ACHAR* text = nullptr;
    const int status = acedGetFullKword(m_prompt.c_str(), text);
    if (status == RTNONE)
        return {};
    if (status != RTNORM && status != RTKWORD)
        throw CommandCancelled();
    std::wstring given = text ? text : L"";
    if (text)
        acutDelString(text);
    return given;
}

/// With no drawing open, when the interface's functions do not ask.
std::wstring Prompt::textWithoutDrawing(bool blanks) const
{
    InputRequest request;
    request.kind = InputRequest::Kind::string;
    request.prompt = m_prompt;
    request.takesBlanks = blanks;
    const InputAnswer answer = EditorInput::instance().ask(request);
    if (answer.kind != InputAnswer::Kind::text)
        throw CommandCancelled();
    return answer.text;
}

std::wstring Prompt::text(bool blanks)
{
    if (!curDoc())
        return textWithoutDrawing(blanks);
    prepare();
    ACHAR* text = nullptr;
    if (acedGetFullString(blanks ? 1 : 0, m_prompt.c_str(), text) != RTNORM)
        throw CommandCancelled();
    std::wstring given = text ? text : L"";
    if (text)
        acutDelString(text);
    return given;
}

std::wstring Prompt::name()
{
    std::wstring given = text(false);
    if (given.size() > 1 && given.front() == L'"' && given.back() == L'"')
        given = given.substr(1, given.size() - 2);
    return given;
}

AcGePoint3d askPoint(const std::wstring& prompt)
{
    return *Prompt(prompt).required().point().value;
}

AcGePoint3d askPoint(const std::wstring& prompt, const AcGePoint3d& from)
{
    return *Prompt(prompt).required().from(from).point().value;
}

bool askYes(const std::wstring& prompt, bool otherwise)
{
    const std::wstring given = Prompt(prompt + (otherwise ? L" [Oui/Non] <Oui> : " : L" [Oui/Non] <Non> : "))
                                   .keywords(L"Oui Non _ Yes No")
                                   .keyword();
    return given.empty() ? otherwise : given == L"Yes";
}

void say(const std::wstring& line)
{
    Console::instance().print(L"\n" + line);
}
