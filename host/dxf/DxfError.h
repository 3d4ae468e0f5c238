#pragma once

#include <stdexcept>
#include <string>

/// Something wrong in a DXF text that did not stop its reading.
/// `line` is 1-based and is that of the group code; 0 where there is none (binary files name the byte in `what`).
/// `groupCode` is -1 where it has none or cannot be read. `what` is French, in UTF-8, without file or line.
struct DxfProblem {
    int line;
    int groupCode;
    std::string what;
};

/// Why a DXF text was refused, in French and UTF-8: "plan.dxf, ligne 12 : code de groupe illisible « xx »".
/// `line` as in DxfProblem; 0 leaves the line out: "plan.dxf : fichier introuvable".
class DxfError : public std::runtime_error {
public:
    DxfError(const std::string& file, int line, const std::string& reason);

    /// As given, often with its folders; the message shows its last part only.
    const std::string& file() const { return m_file; }
    int line() const { return m_line; }
    const std::string& reason() const { return m_reason; }

private:
    std::string m_file;
    int m_line;
    std::string m_reason;
};
