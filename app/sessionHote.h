#pragma once

#include <string>

#include "ed/Kernel.h"

#include "lignesConsole.h"

class Document;

/// The host for the length of one command of the program: loads the survey module and the family's main module as a
/// desktop host does, opens drawings as documents; closes them and unloads the modules, the last one first, at its end.
/// Only one at a time.
class sessionHote {
public:
    /// @param flux where the texts that modules print go
    /// @throws erreurProgramme when a module cannot be loaded.
    explicit sessionHote(std::ostream& flux);
    ~sessionHote();
    sessionHote(const sessionHote&) = delete;
    sessionHote& operator=(const sessionHote&) = delete;

    /// Opens a drawing, which becomes the current one. @throws erreurProgramme: file, line and reason.
    Document& ouvrir(const std::string& chemin);
    /// A new, empty drawing, which becomes the current one.
    Document& creer();
    /// Saves in the form the drawing has; an older file of that name stays as ".bak".
    /// @return name of that older file, empty without one
    /// @throws erreurProgramme: the old file then still stands.
    std::string enregistrer(Document& document, const std::string& chemin);

    lignesConsole& console() { return lignes; }

private:
    void fermer();

    Kernel noyau;
    lignesConsole lignes;
};
