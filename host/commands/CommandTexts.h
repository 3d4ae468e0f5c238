#pragma once

#include <string>

/// What several commands ask or say; what any prompt may say stands in ed/input/InputTexts.h.
namespace command_texts {

inline constexpr wchar_t anyPoint[] = L"Spécifiez un point : ";
inline constexpr wchar_t nextPointOrUndo[] = L"Spécifiez le point suivant ou [annUler] : ";
inline constexpr wchar_t undoKeyword[] = L"annUler _ Undo";
inline constexpr wchar_t nothingToUndo[] = L"Tous les segments sont déjà annulés.";

inline constexpr wchar_t noSuchArc[] = L"Il n'y a pas d'arc ainsi.";
inline constexpr wchar_t arcCenter[] = L"Spécifiez le centre de l'arc : ";
inline constexpr wchar_t arcEnd[] = L"Spécifiez l'extrémité de l'arc : ";
inline constexpr wchar_t arcEndOrMeasure[] = L"Spécifiez l'extrémité de l'arc ou [Angle/Longueur] : ";
inline constexpr wchar_t measureKeywords[] = L"Angle Longueur _ Angle Length";
inline constexpr wchar_t turnedAngle[] = L"Spécifiez l'angle décrit : ";
inline constexpr wchar_t chordLength[] = L"Spécifiez la longueur de la corde : ";
inline constexpr wchar_t startTangent[] = L"Spécifiez la direction de la tangente au point de départ de l'arc : ";
inline constexpr wchar_t arcRadius[] = L"Spécifiez le rayon de l'arc : ";

inline constexpr wchar_t copyOrReference[] = L"Copier Référence _ Copy Reference";
inline constexpr wchar_t colorWanted[] = L"Une couleur de 1 à 255, son nom, DuCalque ou DuBloc est attendu.";
inline constexpr wchar_t zoomFactorWanted[] =
    L"Un nombre positif est attendu, suivi de X pour compter depuis la vue présente.";

// Of a thing that bears a name: "Le calque ", "Le nom de calque ", or nothing but the name.

inline std::wstring isMissing(const std::wstring& thing, const std::wstring& name)
{
    return thing + L"« " + name + L" » n'existe pas.";
}
inline std::wstring isNotInDrawing(const std::wstring& thing, const std::wstring& name)
{
    return thing + L"« " + name + L" » n'est pas dans le dessin.";
}
inline std::wstring isThere(const std::wstring& thing, const std::wstring& name)
{
    return thing + L"« " + name + L" » existe déjà.";
}
inline std::wstring isNotAllowed(const std::wstring& thing, const std::wstring& name)
{
    return thing + L"« " + name + L" » n'est pas permis.";
}

} // namespace command_texts
