#include "dialoguesTerrain.h"
void commandeMnt() {}
