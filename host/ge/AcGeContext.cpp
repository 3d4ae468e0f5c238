#include "gegbl.h"

AcGeTol AcGeContext::gTol;
