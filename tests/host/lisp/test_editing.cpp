#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>

#include <gtest/gtest.h>

/// The drawings that fuzzing starts from, edited as they are and spoiled.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void edit(const std::string& bytes)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

TEST(Editing, anyDrawing)
{
    constexpr int spoiledOnes = 6; // of each
    std::mt19937 random(20261122);
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VELA_SOURCE_DIR "/tests/host/db/corpus")) {
        SCOPED_TRACE(entry.path());
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string whole(std::istreambuf_iterator<char>(stream), {});
        edit(whole);
        for (int i = 0; i < spoiledOnes; ++i) {
            std::string spoiled = whole;
            for (int k = 0; k < 8; ++k)
                spoiled[random() % spoiled.size()] = static_cast<char>('0' + random() % 10);
            edit(i % 2 == 0 ? spoiled : spoiled.substr(0, random() % spoiled.size()));
        }
        ++files;
    }
    EXPECT_GT(files, 0);
}
