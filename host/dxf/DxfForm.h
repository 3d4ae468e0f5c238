#pragma once

#include <string>
#include <string_view>

class DxfEncoding;

/// What a binary file opens with.
inline constexpr std::string_view dxfBinaryMark{"AutoCAD Binary DXF\r\n\x1A\0", 22};

/// How a file writes its tags.
struct DxfForm {
    bool binary = false;
    bool oneByteCodes = false; ///< binary files before R13: one byte a group code, 255 opens a longer one
    std::string eol = "\r\n";  ///< "\r\n", "\n" or "\r"; binary files have none
    int version = 1032; ///< the figures of $ACADVER: 1009 and less (R12), 1012, 1014, 1015 (R2000), 1018, ..., 1032
    const DxfEncoding* encoding = nullptr; ///< never null in the form of an open file
    int codeWidth = 3;                     ///< to which the group codes of an ASCII file are right-aligned

    /// What ends a line; a CR before it belongs to it.
    char lineEnd() const { return eol == "\r" ? '\r' : '\n'; }

    /// Whether tags of one form can stand in a file of the other as they are. Version and alignment do not count.
    friend bool operator==(const DxfForm& a, const DxfForm& b)
    {
        return a.binary == b.binary && a.oneByteCodes == b.oneByteCodes && a.encoding == b.encoding &&
               (a.binary || a.eol == b.eol);
    }
};
