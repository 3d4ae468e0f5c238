#pragma once

#include <cstdint>
#include <string>
#include <vector>

class AcDbDatabaseImpl;
struct DxfRecord;

/// What the user of a drawing must know of it, in French and in the order it was met: problems, which were wrong in the
/// file at opening or have turned up since, and remarks, which are no fault of the file.
class DrawingProblems {
public:
    explicit DrawingProblems(const AcDbDatabaseImpl& database) : m_database(database) {}

    /// Problems and remarks. Grows only: who kept the size knows what came after.
    const std::vector<std::string>& all() const { return m_all; }
    /// Whether there are remarks at most.
    bool isSound() const { return m_all.size() == m_remarks; }

    void add(const std::string& what) { m_all.push_back(what); }
    /// A problem of a line of the file, counted from 1; 0 when the line is not known.
    void add(int line, const std::string& what);
    /// A problem of a record: told with its line and its type.
    void add(const DxfRecord& record, const std::string& what);
    void addRemark(const std::string& what);

private:
    int lineOf(const DxfRecord& record);

    const AcDbDatabaseImpl& m_database;
    std::vector<std::string> m_all;
    std::size_t m_remarks = 0;      // among them
    std::uint64_t m_lineOffset = 0; // where lines were counted to last
    int m_line = 1;
};
