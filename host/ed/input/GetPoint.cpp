// acedGetPoint and acedGetCorner.

#include "acdocman.h"
#include "ed/input/InputTexts.h"
#include "ed/input/Question.h"
#include "ed/SystemVariables.h"
#include "rx/Console.h"

namespace {

/// LIMCHECK is not kept by this host: limits do not refuse points, RSG_NOLIM or not.
int askPoint(InputRequest::Kind kind, const ads_point base, const ACHAR* prompt, ads_point result)
{
    Question question(kind, prompt);
    if (!result || !curDoc())
        return RTERROR;
    question.stretchFrom(base);
    AcGePoint3d point;
    const int status =
        question.ask([&](const InputAnswer& answer) { return readPoint(question.request, answer, point); });
    if (status != RTNORM)
        return status;
    setLastPoint(point);
    result[0] = point.x;
    result[1] = point.y;
    result[2] = point.z;
    return RTNORM;
}

} // namespace

int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result)
{
    return askPoint(InputRequest::Kind::point, base, prompt, result);
}

int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result)
{
    if (!base) {
        EditorInput::instance().takeInitGet();
        return RTERROR;
    }
    return askPoint(InputRequest::Kind::corner, base, prompt, result);
}
