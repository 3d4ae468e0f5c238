#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

/// Each test gets an empty folder of its own, which the platform takes for the place of the user's settings.
class TemporaryTree : public testing::Test {
protected:
    TemporaryTree()
    {
        std::string name = (std::filesystem::temp_directory_path() / "vela-test-XXXXXX").string();
        root = mkdtemp(name.data());
        setenv("VELA_REGISTRY", (root / "registre.ini").c_str(), 1);
        setenv("VELA_SUPPORT", (root / "support").c_str(), 1);
    }
    ~TemporaryTree() override { std::filesystem::remove_all(root); }

    void write(const std::filesystem::path& name, const std::string& content = "") const
    {
        std::filesystem::create_directories((root / name).parent_path());
        std::ofstream(root / name, std::ios::binary) << content;
    }
    std::string read(const std::filesystem::path& name) const
    {
        std::ifstream in(root / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    std::filesystem::path root;
};
