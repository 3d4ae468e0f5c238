#pragma once

#include <string>

/// Numbers as texts. The decimal sign is a full stop. `decimales` is held within 0 to 30.

/// `valeur` with exactly that many decimals.
std::wstring formaterFixe(double valeur, int decimales);

/// A distance along an axis (chainage), in thousands k and remainder r of its absolute value:
///   mode 0: as formaterFixe; 1: "PK k+r"; 2: "k+r"; any other: "k r".
/// From mode 1 on the sign is dropped: a chainage is always written positive. The remainder is rounded by itself, so
/// 1999.999 with 2 decimals is 1+1000.00.
std::wstring formaterAbscisse(double valeur, int decimales, int mode);
