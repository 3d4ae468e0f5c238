#pragma once

#include <chrono>
#include <cstdlib>

#include <gtest/gtest.h>

#include "dwg/ConverterProcess.h"

#include "TestFolder.h"

/// The drawings that README.md describes.
inline std::string dwgSample(const char* name = "leve.dwg")
{
    return contents(std::string(VELA_SOURCE_DIR "/tests/host/dwg/") + name);
}

/// Temporary files go there as well: tests run side by side, and some check that none is left.
class ConversionFolder : public TestFolder {
public:
    ConversionFolder() { setenv("TMPDIR", path().c_str(), 1); }
    ~ConversionFolder() { unsetenv("TMPDIR"); }
};

class DwgConversionTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (runProcess({"node", "--version"}, std::chrono::seconds(30), std::uint64_t{4} << 30).how ==
            ProcessEnd::How::notFound)
            GTEST_SKIP() << "Node.js is not installed: no DWG can be converted";
    }
    ConversionFolder m_folder;
};
