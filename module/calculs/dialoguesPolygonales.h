#pragma once

// Commands.

void corrPolFermee();
void corrPolOuverte();
