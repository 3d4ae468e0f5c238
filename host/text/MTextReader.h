#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Reads the contents of a multi-line text.
///
/// Codes: \P \N \X new line, \~ fixed blank, \L \l \O \o \K \k lines under, over and through, \C colour by index, \c
/// true colour, \H height (absolute or "0.7x"), \W width factor, \Q slant in degrees, \S stacked texts, \p paragraph
/// (alignment by ql, qc, qr), \U+XXXX, %%d %%p %%c %%nnn, braces that keep a look within them. \f \F \A \T are read
/// over; a backslash before anything else shows.

/// How a stretch of text looks.
struct MTextLook {
    double height = 1.0, widthFactor = 1.0, oblique = 0.0;
    std::int32_t trueColor = -1;
    std::int16_t color = -1; ///< by index; -1: that of the whole text
    bool underlined = false, overlined = false, struck = false;

    bool operator==(const MTextLook&) const = default;
};

/// What is never broken: a word, a blank, a stack of two texts; or the end of a line.
struct MTextPiece {
    enum class Kind { word, blank, stack, newLine };
    enum class Side { byAttachment = -1, left = 0, middle = 1, right = 2 };

    Kind kind = Kind::word;
    MTextLook look;
    Side side = Side::byAttachment; ///< of the line that it stands on
    std::wstring text, lower;       ///< `lower`: of a stack
    bool barred = false;            ///< a line between the two texts of a stack
};

/// `base` is the look of what no code changes.
std::vector<MTextPiece> piecesOf(std::wstring_view contents, const MTextLook& base = MTextLook());

/// What shows, lines parted by line feeds; stacks as "1/2".
std::wstring shownContents(std::wstring_view contents);
