#pragma once

/// How many decimals an altitude is written with. The code of the point decides; who knows the codes says so here.

using fonctionDecimales = int (*)(int code);

/// Decimals of the altitudes of points of this code: 2 for every code until a codification is given, and always
/// within 0 to 15 (a double holds no more below ten metres).
int decimalesAltitude(int code);

/// Gives the function that knows the codification; null goes back to 2 decimals.
void definirDecimalesAltitude(fonctionDecimales fonction);
