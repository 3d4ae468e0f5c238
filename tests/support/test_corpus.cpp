#include <filesystem>

#include <gtest/gtest.h>

#include "TestFolder.h"

// What a fuzzer starts from, cut at every byte: no text may harm the program. A test program takes this file with the
// fuzzer's, and names the folder.

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

TEST(Corpus, cutAnywhereDoesNoHarm)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VELA_CORPUS)) {
        const std::string text = contents(entry.path());
        for (std::size_t size = 0; size <= text.size(); ++size)
            EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(text.data()), size), 0);
        ++files;
    }
    EXPECT_GT(files, 0);
}
