#include "ed/input/LispAnswer.h"

#include <charconv>

#include "ed/select/SelectionSets.h"
#include "lisp/drawing/LispSession.h"
#include "rx/Console.h"
#include "rx/TypedNumber.h"

#include "acdocman.h"

namespace {

bool isPoint(const LispValue& value)
{
    int coordinates = 0;
    const LispValue* rest = &value;
    for (; rest->isPair() && rest->car().isNumber() && coordinates < 4; rest = &rest->cdr())
        ++coordinates;
    return rest->isNil() && (coordinates == 2 || coordinates == 3);
}

InputAnswer pointAnswer(const LispValue& value)
{
    InputAnswer answer;
    answer.kind = InputAnswer::Kind::point;
    const LispValue& rest = value.cdr();
    answer.point.set(value.car().number(), rest.car().number(), rest.cdr().isPair() ? rest.cdr().car().number() : 0.0);
    return answer;
}

InputAnswer textAnswer(std::wstring text)
{
    InputAnswer answer;
    answer.kind = InputAnswer::Kind::text;
    answer.text = std::move(text);
    return answer;
}

InputAnswer objectsAnswer(const LispName& name)
{
    InputAnswer answer;
    answer.kind = InputAnswer::Kind::objects;
    if (name.kind == LispName::Kind::entity) {
        answer.objects.emplace_back();
        answer.objects.back().setFromOldId(name.words[0]);
    } else if (const SelectionSet* const set = SelectionSets::instance().find(name.words.data())) {
        answer.objects = set->objects();
    }
    return answer;
}

std::optional<InputAnswer> answerOf(const LispValue& value)
{
    if (value.isText())
        return textAnswer(value.text());
    if (value.isInteger())
        return textAnswer(std::to_wstring(value.integer()));
    if (value.isReal())
        return textAnswer(fullNumberText(value.real()));
    if (isPoint(value))
        return pointAnswer(value);
    if (const LispName* const name = value.name())
        return objectsAnswer(*name);
    if (!value.isPair() || !value.car().name() || !value.cdr().isPair() || !isPoint(value.cdr().car()))
        return std::nullopt;
    InputAnswer answer = objectsAnswer(*value.car().name()); // as entsel gives it: the entity and its point
    answer.point = pointAnswer(value.cdr().car()).point;
    return answer;
}

} // namespace

std::wstring lispExpression(const std::wstring& typed)
{
    return typed.starts_with(L'!') ? typed.substr(1) : typed;
}

std::optional<InputAnswer> lispAnswer(const std::wstring& typed)
{
    AcApDocument* const document = curDoc();
    if (!document)
        return std::nullopt;
    const LispSession::Answer given = LispSession::of(*document).evaluate(lispExpression(typed));
    if (!given.outcome.failed)
        return answerOf(given.outcome.value);
    if (const std::wstring failure = given.outcome.failureText(); !failure.empty())
        Console::instance().print(L"\n" + failure);
    return std::nullopt;
}
