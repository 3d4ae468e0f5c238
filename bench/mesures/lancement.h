#pragma once

#include <functional>
#include <string>

/// The whole of main() for a program whose only option is how often it measures.
/// @param quoi what it measures, for --help
/// @param passes runs at least unless --runs says otherwise, of which the median counts
/// @param mesurer prints its rows and says whether every bar was held
/// @return 0 held, 1 not, 2 an exception, whose text goes to standard error
int lancerMesures(int argc, char** argv, const std::string& quoi, int passes,
                  const std::function<bool(int passes)>& mesurer);
