#include "db/DrawingProblems.h"

#include <algorithm>
#include <string_view>

#include "db/DatabaseImpl.h"
#include "dxf/DxfTexts.h"

void DrawingProblems::add(int line, const std::string& what)
{
    add((line > 0 ? "ligne " + std::to_string(line) + " : " : std::string()) + what);
}

void DrawingProblems::add(const DxfRecord& record, const std::string& what)
{
    add(lineOf(record), dxf_texts::shown(m_database.typeName(record)) + " : " + what);
}

void DrawingProblems::addRemark(const std::string& what)
{
    add(what);
    ++m_remarks;
}

/// Counted on from the last one: a file may have many records that cannot be read.
int DrawingProblems::lineOf(const DxfRecord& record)
{
    const DxfForm& form = m_database.form();
    if (isNew(record) || form.binary)
        return 0;
    const auto [from, to] = std::minmax(m_lineOffset, record.offset);
    const std::string_view between = m_database.file().bytes().substr(from, to - from);
    const auto lines = static_cast<int>(std::ranges::count(between, form.lineEnd()));
    m_line += record.offset < m_lineOffset ? -lines : lines;
    m_lineOffset = record.offset;
    return m_line;
}
