#pragma once

/// What AutoLISP says to its user.
namespace lisp_texts {

inline constexpr wchar_t errorPrefix[] = L"; erreur : ";
inline constexpr wchar_t expressionPrefix[] = L"; dans : ";
inline constexpr wchar_t wrongType[] = L"argument de type incorrect : "; // + predicate + value
inline constexpr wchar_t tooFewArguments[] = L"pas assez d'arguments";
inline constexpr wchar_t tooManyArguments[] = L"trop d'arguments";
inline constexpr wchar_t noFunction[] = L"aucune définition de fonction : ";
inline constexpr wchar_t badFunction[] = L"fonction incorrecte : ";
inline constexpr wchar_t badParameters[] = L"liste de paramètres incorrecte : ";
inline constexpr wchar_t badForm[] = L"syntaxe incorrecte";
inline constexpr wchar_t badPoint[] = L"point incorrect : ";
inline constexpr wchar_t divisionByZero[] = L"division par zéro";
inline constexpr wchar_t outOfRange[] = L"résultat hors limites";
inline constexpr wchar_t protectedSymbol[] = L"symbole protégé : ";
inline constexpr wchar_t deepRecursion[] = L"récursivité trop profonde";
inline constexpr wchar_t noMemory[] = L"mémoire insuffisante : trop de listes et de textes";
inline constexpr wchar_t textTooLong[] = L"texte trop long";
inline constexpr wchar_t interrupted[] = L"Fonction annulée";
inline constexpr wchar_t timeIsUp[] = L"évaluation interrompue : le temps accordé est écoulé";
inline constexpr wchar_t quit[] = L"quitter / sortir abandon";
inline constexpr wchar_t missingParenthesis[] = L"parenthèse fermante manquante";
inline constexpr wchar_t extraParenthesis[] = L"parenthèse fermante en trop";
inline constexpr wchar_t missingQuote[] = L"guillemet fermant manquant";
inline constexpr wchar_t misplacedDot[] = L"point mal placé";
inline constexpr wchar_t nothingQuoted[] = L"rien ne suit l'apostrophe";
inline constexpr wchar_t openComment[] = L"commentaire « ;| » non fermé";
inline constexpr wchar_t badNumber[] = L" n'est pas un nombre";
inline constexpr wchar_t loadFailed[] = L"échec de LOAD : ";
inline constexpr wchar_t fileClosed[] = L"fichier fermé : ";
inline constexpr wchar_t noCommandLine[] = L"COMMAND : la ligne de commande n'est pas disponible ici";
inline constexpr wchar_t variableRefused[] = L"variable système refusée : ";
inline constexpr wchar_t cannotMake[] = L"ENTMAKE ne crée pas ce type d'objet : ";
inline constexpr wchar_t badFilter[] = L"liste de filtre de SSGET incorrecte";
inline constexpr wchar_t cancelledCommand[] = L"COMMAND-S : la commande n'est pas allée à son terme";
inline constexpr wchar_t noDrawing[] = L"aucun dessin n'est ouvert";

} // namespace lisp_texts
