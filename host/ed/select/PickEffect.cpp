#include "ed/select/PickEffect.h"

#include "ed/SystemVariables.h"

PickEffect pickEffect(bool withShift, bool allIn)
{
    const auto value = SystemVariables::instance().value(L"PICKADD");
    const short* const mode = value ? std::get_if<short>(&*value) : nullptr;
    if (!mode || *mode != 0)
        return withShift ? PickEffect::removes : PickEffect::adds;
    if (!withShift)
        return PickEffect::replaces;
    return allIn ? PickEffect::removes : PickEffect::adds;
}
