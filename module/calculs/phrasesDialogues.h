#pragma once

#include <string>

// What the dialogs of computations say alike.

inline constexpr wchar_t titreCalculs[] = L"Calculs Topo";
inline constexpr wchar_t ouvertureImpossible[] = L"Ouverture impossible du fichier";
inline constexpr wchar_t sansTableDePoints[] = L"Le dessin n'a pas de table de points : rien n'est placé.";

inline std::wstring phraseNonEcrit(const std::wstring& fichier)
{
    return L"« " + fichier + L" » n'a pas pu être écrit.";
}
