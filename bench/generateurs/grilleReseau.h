#pragma once

#include <string>

/// A network file (".mc") of a grid of `cote` × `cote` points about 100 m apart, each seen from its eight neighbours by
/// directions (10 ten-thousandths of a grade) and distances (3 mm), with errors as large as that. The four corners are
/// held; no other point has coordinates. Points are named "row.column".
std::string grilleReseau(int cote, unsigned graine);
