#include "points/decimalesAltitude.h"

#include <algorithm>

namespace {

fonctionDecimales codification = nullptr;

} // namespace

int decimalesAltitude(int code)
{
    return codification ? std::clamp(codification(code), 0, 15) : 2;
}

void definirDecimalesAltitude(fonctionDecimales fonction)
{
    codification = fonction;
}
