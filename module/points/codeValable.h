#pragma once

/// Whether a code may be given to a point or to a new code: 1 to 9999.
constexpr bool codeValable(int code)
{
    return code >= 1 && code <= 9999;
}
