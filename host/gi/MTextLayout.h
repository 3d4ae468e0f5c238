#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Sets the contents of a multi-line text: reads its codes, breaks its lines, places its runs.
///
/// Codes: \P new line, \~ fixed blank, \L \l \O \o \K \k lines under, over and through, \C colour by index, \c true
/// colour, \H height (absolute or "0.7x"), \W width factor, \Q slant in degrees, \S stacked texts, \p paragraph
/// (alignment by ql, qc, qr), \U+XXXX, %%d %%p %%c, braces that keep a look within them. \f \F \A \T are read over.
class MTextLayout {
public:
    struct Request {
        double height = 1.0, widthFactor = 1.0, oblique = 0.0;
        double lineWidth = 0.0; ///< where lines are broken; 0 for nowhere
        double spacingFactor = 1.0;
        int attachment = 1; ///< 1 top left to 9 bottom right, by rows
    };
    /// A stretch of one look on one line, its baseline's left end from the text's location.
    struct Run {
        std::wstring text;
        double x = 0.0, y = 0.0, height = 1.0, widthFactor = 1.0, oblique = 0.0;
        std::int32_t trueColor = -1;
        std::int16_t color = -1;
        bool underlined = false, overlined = false, struck = false;
    };

    explicit MTextLayout(const Request& request) : m_request(request) {}
    std::vector<Run> lay(std::wstring_view contents) const;

private:
    Request m_request;
};
