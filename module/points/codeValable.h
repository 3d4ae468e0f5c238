#pragma once

/// Whether a new code, or a point placed by hand, may have the number: 1 to 9999.
constexpr bool codeValable(int code)
{
    return code >= 1 && code <= 9999;
}
