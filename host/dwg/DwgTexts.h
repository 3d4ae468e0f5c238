#pragma once

#include <chrono>
#include <filesystem>
#include <string>

/// What the user reads when a DWG drawing is opened, in French and UTF-8; the converter says the rest (convert.mjs).
namespace dwg_texts {

inline constexpr char nodeMissing[] =
    "Node.js est introuvable ; il faut l'installer (paquet « nodejs ») pour ouvrir les dessins DWG";
inline constexpr char crashed[] = "le convertisseur s'est arrêté brutalement";
inline constexpr char converted[] =
    "dessin DWG converti en DXF : les réels y ont 16 chiffres, et les références à des objets absents sont ignorées ; "
    "il s'enregistre en DXF";

inline std::string notInstalledIn(const std::filesystem::path& folder)
{
    return "le convertisseur de dessins DWG n'est pas installé dans « " + folder.string() +
           " » ; lancez « scripts/installer.sh »";
}

inline std::string unreadable(const std::string& reason)
{
    return "dessin DWG illisible : " + reason;
}

inline std::string tooLong(std::chrono::seconds limit)
{
    return "la conversion du dessin DWG a dépassé " + std::to_string(limit.count()) + " s ; elle est abandonnée";
}

inline std::string passedOver(const std::string& what)
{
    return "conversion du dessin DWG : " + what;
}

} // namespace dwg_texts
