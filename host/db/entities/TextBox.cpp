#include "db/entities/TextBox.h"

#include <cmath>

#include "db/entities/OcsTransform.h"
#include "platform/LetterCase.h"

std::size_t shownCharacters(std::wstring_view text)
{
    std::size_t shown = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != L'%' || i + 2 >= text.size() || text[i + 1] != L'%') {
            ++shown;
            continue;
        }
        const auto code = platform::lowerCase(text[i + 2]);
        i += 2;
        if (code == L'u' || code == L'o' || code == L'k')
            continue; // underline, overline, strike through
        ++shown;
        for (int digit = 0; digit < 2 && code >= L'0' && code <= L'9' && i + 1 < text.size(); ++digit)
            if (text[i + 1] >= L'0' && text[i + 1] <= L'9')
                ++i;
    }
    return shown;
}

void TextBox::addTo(AcDbExtents& extents, const AcGeVector3d& normal) const
{
    const double cosine = std::cos(rotation), sine = std::sin(rotation);
    for (const double up : {bottom, top})
        for (const double along : {left, right}) {
            const double x = along + (up - bottom) * slant;
            const AcGeVector3d off(x * cosine - up * sine, x * sine + up * cosine, 0.0);
            extents.addPoint(ocsToWorld(anchor + off, normal));
        }
}
