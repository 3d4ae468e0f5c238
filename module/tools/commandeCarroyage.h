#pragma once

/// The command CARROYAGE: asks for a grid and draws it in the regions chosen, as one step of undo.
void commandeCarroyage();
