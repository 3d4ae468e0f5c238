// Any bytes as the registry's file; then a value is set in it, under the key, the name and the text that its first
// three lines spell: what was set is read back from the file, and setting it again changes no byte.

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "platform/CodePage.h"
#include "platform/Registry.h"

#include "TestFolder.h"

using platform::Registry;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

std::wstring nextLine(std::istream& lines)
{
    std::string line;
    std::getline(lines, line);
    for (char& c : line)
        if (c == '\1')
            c = '\n'; // a text of several lines must be refused
    return platform::wideFromUtf8(line);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const TestFolder folder;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::filesystem::path file = folder.write("registre.ini", bytes);
    std::istringstream lines(bytes);
    const std::wstring key = nextLine(lines), name = nextLine(lines), text = nextLine(lines);
    try {
        Registry registry(file);
        registry.setValue(key, name, text);
    } catch (const std::invalid_argument&) {
        require(folder.read("registre.ini") == bytes);
        return 0;
    }
    Registry again(file);
    require(again.hasKey(key));
    require(again.value(key, name) == Registry::Value(text));
    const std::string saved = folder.read("registre.ini");
    again.setValue(key, name, text);
    require(folder.read("registre.ini") == saved);
    return 0;
}
