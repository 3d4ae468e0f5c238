#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "points/codeValable.h"

struct codifPoint;
class tableCodification;

// What a code may hold. The dialogs, the AutoLISP functions and the readers of files keep to the same rules.

/// The sizes that symbols may have.
inline constexpr double tailleMin = 1e-6, tailleMax = 1e6;
bool tailleValable(double taille);

/// Whether a layer may bear the name, blanks at its ends aside; an empty one stands for layer "0".
bool calqueValable(std::wstring_view nom);
/// What layer names must not be, for those who typed one that is not valable.
extern const wchar_t* const regleNomsCalques;
/// Replaces what no layer name may hold, by "_", in the five names of a code; what is too long is cut. Prints each
/// change on the command line, as read from `fichier` when that is not empty.
void reparerCalques(codifPoint& code, const std::wstring& fichier = {});

/// The path under which a code keeps its block's drawing file: a ".dxf" is named as the ".dwg" of its stem, which is
/// how blocks are read; a bare name is that of a block of the module's library.
/// @return nothing for a relative path that is no block of the library: only this session could find its file.
std::optional<std::wstring> cheminDeBloc(std::wstring_view saisi);

/// The file that is read for a block's path, as the system names it: it may be a ".dxf" where the path says ".dwg".
/// Where there is none, the first block of the module's library, for its folder; empty without a library.
std::wstring fichierDuBloc(const std::wstring& chemin);

/// What the user reads of a code that is not.
inline constexpr const wchar_t* messageCodeIncorrect = L"Code incorrect\nTapez un nombre compris entre 1 et 9999";

/// What becomes of the code number that a user types.
enum class verdictCode {
    accepte,
    propose,     ///< "?" asked for a number
    aucunLibre,  ///< "?" asked for one, and all are taken
    horsBornes,  ///< not within 1 to 9999; a text that is no number reads as 0
    dejaExistant ///< a new code bears a number that is taken
};

struct avisCode {
    verdictCode verdict;
    int code = 0; ///< when accepted or proposed
};

/// @param creation a new code: its number must be free
avisCode validerCode(std::wstring_view saisie, const tableCodification& table, bool creation);
