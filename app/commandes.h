#pragma once

namespace CLI {
class App;
}

// Each declares one command of the program: its options, and what is done once they are read. What goes wrong meanwhile
// is thrown as erreurProgramme.

void ajouterCommandePolygonale(CLI::App& programme);
void ajouterCommandePoints(CLI::App& programme);
void ajouterCommandeImplantation(CLI::App& programme);
void ajouterCommandeReseau(CLI::App& programme);
void ajouterCommandeInfo(CLI::App& programme);
void ajouterCommandeConvertir(CLI::App& programme);
void ajouterCommandeApercu(CLI::App& programme);
void ajouterCommandeExecuter(CLI::App& programme);
void ajouterCommandeVerifier(CLI::App& programme);

/// Without a command, the program opens its window, with the drawings it is given.
void ajouterFenetre(CLI::App& programme);
