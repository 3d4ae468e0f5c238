#include "points/attribsPoints.h"

const attribsPoints attribsDuModule;
