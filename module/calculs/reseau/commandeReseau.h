#pragma once

/// The command CORRMCARRES: the dialog of networks.
void corrMCarres();
