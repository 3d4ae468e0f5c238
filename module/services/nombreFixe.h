#pragma once

#include <string>

/// `valeur` with exactly `decimales` decimals (a negative count is taken as 0): the digits are those of the exact
/// binary value, so 1e38 prints as 99999999999999997748809823456034029568, and the decimal sign is a full stop
/// whatever the user's locale. Values that are not finite print as "inf", "-inf", "nan" or "-nan".
std::string nombreFixe(double valeur, int decimales);
