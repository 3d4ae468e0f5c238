#pragma once

/// The command with dialogs: the list of models and all that is done with them.
void commandeMnt();
