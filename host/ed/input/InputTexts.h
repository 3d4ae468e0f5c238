#pragma once

/// What the command line says of answers that do not do, and of what it asks by itself.
namespace input_texts {

inline constexpr wchar_t filteredFrom[] = L"de : ";
inline constexpr wchar_t filterNeeds[] = L"(il manque ";
inline constexpr wchar_t pointWanted[] = L"Point incorrect.";
inline constexpr wchar_t lengthWanted[] = L"Une distance numérique ou deux points sont attendus.";
inline constexpr wchar_t angleWanted[] = L"Un angle correct ou un second point est attendu.";
inline constexpr wchar_t realWanted[] = L"Une valeur numérique est attendue.";
inline constexpr wchar_t integerWanted[] = L"Un nombre entier est attendu.";
inline constexpr wchar_t integerRange[] = L"Un entier entre -32768 et 32767 est attendu.";
inline constexpr wchar_t keywordWanted[] = L"Mot-clé incorrect.";
inline constexpr wchar_t answerWanted[] = L"Une réponse est attendue.";
inline constexpr wchar_t notZero[] = L"La valeur doit être différente de zéro.";
inline constexpr wchar_t notNegative[] = L"La valeur ne peut pas être négative.";
inline constexpr wchar_t positiveWanted[] = L"La valeur doit être positive et différente de zéro.";
inline constexpr wchar_t secondPoint[] = L"Spécifiez le deuxième point : ";
inline constexpr wchar_t pickObject[] = L"Choix de l'objet : ";
inline constexpr wchar_t pickObjects[] = L"Choix des objets : ";
inline constexpr wchar_t pickToRemove[] = L"Supprimer des objets : ";
inline constexpr wchar_t selectionWanted[] =
    L"Sélection incorrecte. Un point est attendu, ou Fenêtre/Dernier/Capture/BOîte/TOUt/Trajet/FPolygone/CPolygone/"
    L"Ajouter/Supprimer/Précédent/aNnuler/SIngulier.";
inline constexpr wchar_t firstCorner[] = L"Spécifiez le premier coin : ";
inline constexpr wchar_t oppositeCorner[] = L"Spécifiez le coin opposé : ";
inline constexpr wchar_t firstPoint[] = L"Spécifiez le premier point : ";
inline constexpr wchar_t nextPoint[] = L"Spécifiez le point suivant : ";

} // namespace input_texts
