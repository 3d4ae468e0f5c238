#include "exerciseDrawing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    exerciseDrawing(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
