// acedGetDist, acedGetAngle and acedGetOrient: numbers that points can tell as well.

#include <cmath>

#include "ed/input/InputTexts.h"
#include "ed/input/Question.h"
#include "ed/input/TypedPoint.h"
#include "ge/Angles.h"
#include "rx/TypedAngle.h"
#include "rx/TypedNumber.h"

#include "acdocman.h"

namespace {

/// What two points tell.
using Measure = double (*)(const AcGePoint3d& from, const AcGePoint3d& to);

double distanceInSpace(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return from.distanceTo(to);
}
double distanceInPlane(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}
double angleFromEast(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return inOneTurn(std::atan2(to.y - from.y, to.x - from.x));
}
double angleFromBase(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return inOneTurn(angleFromEast(from, to) - AngleUnits::ofDrawing().base);
}

/// Asks for a value that is typed, or told by one point with the base or by two.
class MeasureQuestion {
public:
    MeasureQuestion(InputRequest::Kind kind, const ads_point base, const ACHAR* prompt) : m_question(kind, prompt)
    {
        m_question.stretchFrom(base);
    }

    using Typed = std::optional<double> (*)(const std::wstring& text);
    int ask(Typed typed, Measure measure, const wchar_t* wanted, bool checksSign, ads_real* result)
    {
        if (!result || !curDoc())
            return RTERROR;
        double value = 0.0;
        std::optional<AcGePoint3d> point;
        const auto checked = [&](double number) {
            return checksSign ? refusedNumber(number, m_question.init()) : nullptr;
        };
        const int status = m_question.ask([&](const InputAnswer& answer) -> const wchar_t* {
            if (answer.kind == InputAnswer::Kind::text)
                if (const auto number = typed(answer.text)) {
                    value = *number;
                    return checked(value);
                }
            AcGePoint3d given;
            if (readPoint(m_question.request, answer, given))
                return wanted;
            if (!m_question.request.base) {
                point = given;
                return nullptr;
            }
            value = measure(*m_question.request.base, given);
            if (const wchar_t* const refused = checked(value))
                return refused;
            setLastPoint(given);
            return nullptr;
        });
        if (status == RTNORM && point)
            return askSecond(*point, measure, result);
        if (status == RTNORM)
            *result = value;
        return status;
    }

private:
    int askSecond(const AcGePoint3d& from, Measure measure, ads_real* result)
    {
        AcGePoint3d to;
        const int status = askSecondPoint(m_question, from, to);
        if (status != RTNORM)
            return status;
        setLastPoint(to);
        *result = measure(from, to);
        return RTNORM;
    }

    Question m_question;
};

std::optional<double> typedLength(const std::wstring& text)
{
    return typedNumber(text);
}
std::optional<double> typedFromBase(const std::wstring& text)
{
    return AngleUnits::ofDrawing().fromBase(text);
}
std::optional<double> typedFromEast(const std::wstring& text)
{
    return AngleUnits::ofDrawing().fromEast(text);
}

} // namespace

int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    const bool inPlane = EditorInput::instance().initGet().has(RSG_2D);
    return MeasureQuestion(InputRequest::Kind::distance, base, prompt)
        .ask(typedLength, inPlane ? distanceInPlane : distanceInSpace, input_texts::lengthWanted, true, result);
}

int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    return MeasureQuestion(InputRequest::Kind::angle, base, prompt)
        .ask(typedFromBase, angleFromBase, input_texts::angleWanted, true, result);
}

int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    return MeasureQuestion(InputRequest::Kind::angle, base, prompt)
        .ask(typedFromEast, angleFromEast, input_texts::angleWanted, true, result);
}
