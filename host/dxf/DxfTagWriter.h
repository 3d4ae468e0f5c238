#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dxf/DxfForm.h"
#include "dxf/DxfTag.h"

/// Appends tags to a string, in the form of a file.
/// The value given must be of the kind of its group code: in a binary file that kind sets its width.
/// A value that the form cannot hold (a real that is not finite, an integer wider than its code) throws DxfError
/// and leaves `out` as it was.
class DxfTagWriter {
public:
    /// Both must outlive the writer; form.encoding must be set.
    DxfTagWriter(const DxfForm& form, std::string& out);

    /// Shortest digits that read back as the same number, always with a point: "652000.0", "1.0E+38".
    void real(int code, double value);
    /// Three reals under code, code + 10 and code + 20.
    void point(int code, double x, double y, double z);
    void integer(int code, std::int64_t value);
    /// Upper-case hexadecimal digits; the null handle is "0".
    void handle(int code, std::uint64_t value);
    /// Characters, encoded and escaped as the form wants.
    void text(int code, std::wstring_view value);
    /// Bytes of a text already encoded and escaped; without line end or zero.
    void rawText(int code, std::string_view value);
    /// As many tags as chunks of 127 bytes; one empty tag for no bytes.
    void bytes(int code, std::string_view value);
    /// Whole tags, already in this form.
    void raw(std::string_view tags) { m_out.append(tags); }

    const DxfForm& form() const { return m_form; }
    std::string& out() { return m_out; }

private:
    char* putCode(char* at, int code) const;
    char* putEol(char* at) const;
    void integerBinary(int code, std::int64_t value);

    const DxfForm& m_form;
    std::string& m_out;
    bool m_binary;
    int m_codeWidth;
    std::size_t m_eolSize;
    char m_eol[2];
};
