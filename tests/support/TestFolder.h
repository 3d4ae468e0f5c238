#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// All that a file holds; nothing if it cannot be read.
std::string contents(const std::filesystem::path& file);

/// A folder of a test's own, gone at its end.
class TestFolder {
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }

    /// Writes a file, in a folder of its own if the name has one. @return its whole path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view bytes = {}) const;
    std::string read(const std::filesystem::path& name) const { return contents(m_path / name); }
    /// A program that runs a line of shell. @return its path.
    std::string program(const std::string& name, const std::string& line) const;

private:
    std::filesystem::path m_path;
};
