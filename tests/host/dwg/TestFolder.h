#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

/// A folder of a test's own, gone at its end. Temporary files go there as well: tests run side by side, and some
/// check that none is left.
class TestFolder {
public:
    TestFolder() : m_path("/tmp/vela-dwg-test-XXXXXX")
    {
        if (mkdtemp(m_path.data()) == nullptr)
            throw std::system_error(errno, std::generic_category(), m_path);
        setenv("TMPDIR", m_path.c_str(), 1);
    }
    ~TestFolder()
    {
        unsetenv("TMPDIR");
        std::filesystem::remove_all(m_path);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return std::filesystem::path(m_path) / name; }
    std::filesystem::path path() const { return m_path; }

    std::filesystem::path write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(*this / name, std::ios::binary) << bytes;
        return *this / name;
    }
    /// A program that runs a line of shell.
    std::string program(const std::string& name, const std::string& line) const
    {
        const std::filesystem::path file = write(name, "#!/bin/sh\n" + line + "\n");
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return file.string();
    }

private:
    std::string m_path;
};
