#pragma once

#include <fstream>
#include <string>

/// A file that (open) gave. Text is Windows-1252 on the disk. Closed with the last value that holds it.
class LispFile {
public:
    enum class Mode { read, write, append };
    /// `name` is a Windows-style or a native path; see isOpen.
    LispFile(const std::wstring& name, Mode mode);

    const std::wstring& name() const { return m_name; }
    bool isOpen() const { return m_stream.is_open(); }
    void close() { m_stream.close(); }

    /// False at the end. Line ends are left out.
    bool readLine(std::wstring& line);
    /// A line break is 10, whichever way it stands in the file; -1 at the end.
    int readCharacter();
    /// A line break becomes that of the platform the files are made for: carriage return and line feed.
    void write(std::wstring_view text);

private:
    std::wstring m_name;
    Mode m_mode;
    std::fstream m_stream;
};
