#pragma once

#include <string>

class listePointsDuDessin;

/// French sentence on the points of a table from position `premier` on, which were just added, whose name another point
/// of the table bears as well; empty when there is none. Names are told apart as the table does when it looks one up:
/// letter case and surrounding blanks do not count. Cost: one pass over the table.
std::wstring phraseNomsDoubles(const listePointsDuDessin& table, int premier);

/// Prints the sentence on the command line, if there is one.
void direNomsDoubles(const listePointsDuDessin& table, int premier);
