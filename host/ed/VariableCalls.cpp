#include <cwchar>
#include <filesystem>
#include <limits>

#include "ed/SystemVariables.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"

#include "acedads.h"
#include "acutmem.h"

namespace {

/// Writes a value into a result buffer, with its type.
struct IntoBuffer {
    resbuf& buffer;

    void operator()(short value) const
    {
        buffer.restype = RTSHORT;
        buffer.resval.rint = value;
    }
    void operator()(double value) const
    {
        buffer.restype = RTREAL;
        buffer.resval.rreal = value;
    }
    void operator()(const std::wstring& value) const
    {
        buffer.restype = RTSTR;
        acutNewString(value.c_str(), buffer.resval.rstring);
    }
    void operator()(const AcGePoint2d& value) const { setPoint(RTPOINT, value.x, value.y, 0.0); }
    void operator()(const AcGePoint3d& value) const { setPoint(RT3DPOINT, value.x, value.y, value.z); }

    void setPoint(short type, double x, double y, double z) const
    {
        buffer.restype = type;
        buffer.resval.rpoint[0] = x;
        buffer.resval.rpoint[1] = y;
        buffer.resval.rpoint[2] = z;
    }
};

std::optional<VariableValue> valueOf(const resbuf& buffer)
{
    const ads_u_val& value = buffer.resval;
    switch (buffer.restype) {
    case RTSHORT:
        return value.rint;
    case RTLONG:
        if (value.rlong < std::numeric_limits<short>::min() || value.rlong > std::numeric_limits<short>::max())
            return std::nullopt;
        return static_cast<short>(value.rlong);
    case RTREAL:
    case RTANG:
    case RTORINT:
        return value.rreal;
    case RTSTR:
        return std::wstring(value.rstring ? value.rstring : L"");
    case RTPOINT:
        return AcGePoint2d(value.rpoint[0], value.rpoint[1]);
    case RT3DPOINT:
        return AcGePoint3d(value.rpoint[0], value.rpoint[1], value.rpoint[2]);
    default:
        return std::nullopt;
    }
}

} // namespace

int acedGetVar(const ACHAR* name, resbuf* result)
{
    if (!name || !result)
        return RTERROR;
    const auto value = SystemVariables::instance().value(name);
    if (!value)
        return RTERROR;
    std::visit(IntoBuffer{*result}, *value);
    return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* value)
{
    const auto given = name && value ? valueOf(*value) : std::nullopt;
    if (!given)
        return RTERROR;
    return SystemVariables::instance().set(name, *given) == SystemVariables::Answer::done ? RTNORM : RTERROR;
}

int acedFindFile(const ACHAR* name, ACHAR* result, size_t size)
{
    if (!name || !result)
        return RTERROR;
    std::error_code noMatter; // a place that cannot be looked at holds no file
    const std::filesystem::path file = std::filesystem::absolute(platform::nativePath(name), noMatter);
    const std::wstring path = platform::wideFromUtf8(file.string());
    if (!std::filesystem::is_regular_file(file, noMatter) || path.size() >= size)
        return RTERROR;
    std::wmemcpy(result, path.c_str(), path.size() + 1);
    return RTNORM;
}
