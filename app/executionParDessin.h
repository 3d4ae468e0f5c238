#pragma once

#include <string>
#include <vector>

/// Runs the program once for each drawing, one after the other, each in a process of its own: what goes wrong with one,
/// even a crash, costs the others nothing.
/// @param arguments of `vela`, to which "--dessin" and the drawing are added
/// @param entree what each reads as its standard input
/// Tells each drawing before its output. @throws erreurProgramme naming those that failed.
void executerParDessin(const std::vector<std::string>& arguments, const std::vector<std::string>& dessins,
                       const std::string& entree);
