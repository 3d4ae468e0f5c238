#include "TestFolder.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

std::string contents(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TestFolder::TestFolder()
{
    std::string name = (fs::temp_directory_path() / "vela-essai-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::system_error(errno, std::generic_category(), name);
    m_path = name;
}

TestFolder::~TestFolder()
{
    std::error_code ignored; // a folder left in /tmp is no failure of the test
    fs::remove_all(m_path, ignored);
}

fs::path TestFolder::write(const fs::path& name, std::string_view bytes) const
{
    const fs::path file = m_path / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

std::string TestFolder::program(const std::string& name, const std::string& line) const
{
    const fs::path file = write(name, "#!/bin/sh\n" + line + "\n");
    fs::permissions(file, fs::perms::owner_all);
    return file.string();
}
