// acedGetPoint and acedGetCorner.

#include "ed/input/PointFilter.h"
#include "ed/SystemVariables.h"
#include "rx/Console.h"

#include "acdocman.h"

namespace {

/// LIMCHECK is not kept by this host: limits do not refuse points, RSG_NOLIM or not.
int askPoint(InputRequest::Kind kind, const ads_point base, const ACHAR* prompt, ads_point result)
{
    Question question(kind, prompt);
    if (!result || !curDoc())
        return RTERROR;
    question.stretchFrom(base);
    AcGePoint3d point;
    int filtered = RTNORM;
    const int status = question.ask([&](const InputAnswer& answer) {
        const auto filter = answer.kind == InputAnswer::Kind::text ? pointFilter(answer.text) : std::nullopt;
        if (!filter)
            return readPoint(question.request, answer, point);
        filtered = askFiltered(*filter, point);
        return static_cast<const wchar_t*>(nullptr);
    });
    if (status != RTNORM || filtered != RTNORM)
        return status != RTNORM ? status : filtered;
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
