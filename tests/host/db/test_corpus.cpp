#include <random>

#include "exerciseDrawing.h"
#include "SmallDrawing.h"

/// The drawings that fuzzing starts from, whole and spoiled.

namespace {

std::vector<std::pair<std::string, std::string>> corpus()
{
    std::vector<std::pair<std::string, std::string>> files;
    for (const auto& entry : std::filesystem::directory_iterator(VELA_SOURCE_DIR "/tests/host/db/corpus"))
        files.emplace_back(entry.path().filename(), contents(entry.path()));
    return files;
}

} // namespace

TEST(CorpusTest, everyDrawingEndsWell)
{
    const auto files = corpus();
    EXPECT_GE(files.size(), 4U);
    for (const auto& [name, bytes] : files) {
        SCOPED_TRACE(name);
        exerciseDrawing(bytes);
    }
}

TEST(CorpusTest, spoiledAtRandom)
{
    constexpr unsigned seed = 20150217;
    constexpr int variants = 60;
    std::mt19937 random(seed);
    for (const auto& [name, bytes] : corpus())
        for (int variant = 0; variant < variants; ++variant) {
            SCOPED_TRACE(name + ", seed " + std::to_string(seed) + ", variant " + std::to_string(variant));
            std::string spoiled = bytes;
            for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
                const std::size_t at = random() % spoiled.size(), length = random() % 40;
                switch (random() % 4) {
                case 0:
                    spoiled[at] = static_cast<char>(random() % 256);
                    break;
                case 1:
                    spoiled.erase(at, length);
                    break;
                case 2:
                    spoiled.insert(at, spoiled.substr(random() % spoiled.size(), length));
                    break;
                default: // lines of the same drawing change places
                    const std::size_t line = spoiled.find('\n', random() % spoiled.size());
                    if (line != spoiled.npos)
                        spoiled.insert(std::min(spoiled.find('\n', at), spoiled.size() - 1) + 1,
                                       spoiled.substr(line + 1, 30));
                }
            }
            exerciseDrawing(spoiled);
        }
}
