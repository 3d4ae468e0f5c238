// What the fuzzer starts from, cut at every character: no text may harm the program.

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace {

TEST(LispCorpus, cutAnywhereDoesNoHarm)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VELA_SOURCE_DIR "/tests/host/lisp/corpus")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        for (std::size_t size = 0; size <= text.size(); ++size)
            EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(text.data()), size), 0);
        ++files;
    }
    EXPECT_GT(files, 0);
}

} // namespace
