#pragma once

#include <functional>
#include <string>

/// Where the texts printed by modules and the host go: the command line. The program or a test says what it is.
class Console {
public:
    using Sink = std::function<void(const std::wstring& text)>;

    static Console& instance();

    /// Until one is set, texts are only remembered.
    void setSink(Sink sink) { m_sink = std::move(sink); }
    /// Prints a text as it stands: line breaks are its own, most begin with one.
    void print(const std::wstring& text);
    /// The last line printed that is not blank, as a user reads it: without its line breaks.
    const std::wstring& lastLine() const;

private:
    Sink m_sink;
    std::wstring m_line;     // printed since the last line break
    std::wstring m_lastFull; // the last line that is not blank before it
};
