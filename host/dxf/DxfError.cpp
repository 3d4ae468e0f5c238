#include "dxf/DxfError.h"

namespace {

std::string message(const std::string& file, int line, const std::string& reason)
{
    std::string text = file.substr(file.find_last_of('/') + 1);
    if (line > 0)
        text += ", ligne " + std::to_string(line);
    return text + " : " + reason;
}

} // namespace

DxfError::DxfError(const std::string& file, int line, const std::string& reason) :
    std::runtime_error(message(file, line, reason)),
    m_file(file),
    m_line(line),
    m_reason(reason)
{
}
