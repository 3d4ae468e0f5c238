#pragma once

#include "services/Uncopyable.h"

class AcDbDatabase;
class projetsTopo;

/// Lets the drawing's undo and redo take back and make again the changes of the tables of its project.
/// The number of the project's state (journalProjet) is kept in an object of the drawing that is erased from its birth:
/// undo restores it as it does any other, and no file ever holds it.

/// From now on, and until the drawing or the project goes. A drawing without history is left alone.
void suivreAnnulation(AcDbDatabase& dessin, projetsTopo& projet);
/// The project goes.
void oublierAnnulation(const projetsTopo& projet);

/// What is put into the drawing meanwhile, for it to be saved, is no change that goes with one of the tables.
class sauvegardeEnCours : Uncopyable {
public:
    sauvegardeEnCours() { ++profondeur; }
    ~sauvegardeEnCours() { --profondeur; }

    static bool active() { return profondeur > 0; }

private:
    static inline int profondeur = 0;
};
