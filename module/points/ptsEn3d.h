#pragma once

/// The command PTSEN3D: one host point at the 3D position of each point of the current table whose altitude is known,
/// then the number of points of the table.
void ptsEn3d();
