#include <cstddef>
#include <cstdint>

#include "exerciseDxf.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    exerciseDxf(bytes, DxfUpgrade::none);
    exerciseDxf(bytes, DxfUpgrade::toR2000);
    return 0;
}
