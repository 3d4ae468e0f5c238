#pragma once

#include <functional>
#include <optional>
#include <string>

class QIcon;
class QString;

// File dialogs. Without windows they answer as if they had been cancelled, and say so on the command line.

struct demandeFichier {
    std::wstring titre;     ///< empty: "Ouvrir" or "Enregistrer sous"
    std::wstring filtres;   ///< "Points (.xyz)|*.xyz|Page HTML|*.htm; *.html|Tous (*.*)|*.*||"; empty: every file
    std::wstring extension; ///< added to a name typed without one, unless the filter chosen has another; no period
    std::wstring nom;       ///< proposed at first, a file or a folder; without one, in the folder of the drawing
    std::function<QIcon(const QString&)> image = nullptr; ///< shown beside a file's name; null for one that has none
};

/// An existing file. @return its full path; nothing when cancelled.
std::optional<std::wstring> demanderFichierALire(const demandeFichier& demande);
/// A file to write; the user has agreed to replace one that exists.
/// @param filtre if given, receives the rank of the filter chosen, from 1
std::optional<std::wstring> demanderFichierAEcrire(const demandeFichier& demande, int* filtre = nullptr);
/// Asks whether the file of that name may be replaced.
bool confirmerRemplacement(const std::wstring& nom);
