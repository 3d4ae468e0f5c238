#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

/// What the user reads about a drawing file, in French and UTF-8.
namespace dxf_texts {

inline constexpr char fileNotFound[] = "fichier introuvable";
inline constexpr char accessDenied[] = "accès refusé";
inline constexpr char notAFile[] = "ce n'est pas un fichier";
inline constexpr char cannotRead[] = "lecture impossible";
inline constexpr char beingWritten[] = "un autre programme est en train de l'écrire ; rouvrez-le quand il aura fini";
inline constexpr char notEnoughMemory[] = "mémoire insuffisante";
inline constexpr char lostOnMedium[] = "perdu : le support ne donne plus ces octets (retiré ou endommagé)";
inline constexpr char structureLost[] =
    "la structure du dessin est perdue, le support ne la donne plus ; il ne peut être enregistré";
inline constexpr char emptyFile[] = "fichier vide";
inline constexpr char isDwg[] = "c'est un dessin DWG : donnez-lui l'extension « .dwg »";
inline constexpr char noSection[] = "aucune section, ce n'est pas un dessin DXF";
inline constexpr char tooManyTypes[] = "trop de noms d'objets différents";
inline constexpr char recordTooLong[] = "enregistrement de plus de 4 Go";
inline constexpr char tooManyRecords[] = "trop d'enregistrements";
inline constexpr char tooSpoiled[] = "trop de lignes illisibles";
inline constexpr char missingEof[] = "la marque de fin « EOF » manque";
inline constexpr char strayRecords[] = "enregistrements hors de toute section";
inline constexpr char strayEndsec[] = "« ENDSEC » sans section ouverte";
inline constexpr char endsecWithin[] = "« ENDSEC » au milieu d'une section, retiré";
inline constexpr char originalKept[] = "au premier enregistrement, l'original est gardé sous un nom en « .original »";
inline constexpr char noMarkers[] =
    "les objets n'ont pas les marques de leurs classes (code de groupe 100) ; elles sont "
    "ajoutées, comme à un dessin R12";
inline constexpr char headRemade[] = "l'en-tête du dessin est illisible, il est refait de ce qui en reste";
inline constexpr char tagCut[] = "donnée illisible ou coupée";

inline constexpr char keepsDamaged[] = "le support ne donne plus tout le dessin (retiré ou endommagé), le fichier "
                                       "n'est pas remplacé ; enregistrez sous un "
                                       "autre nom ce qui a été lu et modifié";

inline std::string rescued(std::size_t records)
{
    return "le support ne donne plus tout le dessin (" + std::to_string(records) +
           (records > 1 ? " objets touchés" : " objet touché") + ") : seuls ceux qui avaient été lus sont enregistrés";
}

/// The head of a line that could not be read, whatever its encoding.
inline std::string shown(std::string_view line)
{
    constexpr std::size_t length = 40;
    std::string text(line.substr(0, length));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return text;
}

/// " « 70000 » (code de groupe 62)"; values of binary files are not shown.
inline std::string valueUnder(int groupCode, std::string_view value)
{
    const std::string quoted = value.empty() ? std::string() : " « " + shown(value) + " »";
    return quoted + " (code de groupe " + std::to_string(groupCode) + ")";
}

inline std::string sectionNotClosed(std::string_view name)
{
    return "la section « " + shown(name) + " » n'est pas terminée";
}

inline std::string sectionCut(std::string_view name)
{
    return "fichier tronqué, " + sectionNotClosed(name);
}

inline std::string recordCut(std::string_view type)
{
    return "le dernier objet (" + shown(type) + ") est coupé ou peut l'être, il n'est pas repris";
}

inline std::string sectionReopened(std::string_view name)
{
    return "le début de la section « " + shown(name) + " » est perdu, elle est rouverte à ce qui peut se lire";
}

inline std::string badGroupCode(std::string_view line)
{
    return "code de groupe illisible « " + shown(line) + " »";
}

inline std::string badRecordName(std::string_view line)
{
    return "nom d'objet illisible « " + shown(line) + " »";
}

inline std::string unknownCodePage(std::string_view name)
{
    return "page de codes inconnue « " + shown(name) + " », Windows-1252 supposée";
}

inline std::string handlesRepaired(std::size_t missing, std::size_t twice)
{
    const std::string unread = missing > 1 ? " absents ou illisibles" : " absent ou illisible";
    std::string text = missing + twice > 1 ? "identifiants d'objets refaits : " : "identifiant d'objet refait : ";
    if (missing > 0)
        text += std::to_string(missing) + unread;
    if (missing > 0 && twice > 0)
        text += ", ";
    if (twice > 0)
        text += std::to_string(twice) + " en double";
    return text;
}

inline std::string atByte(std::uint64_t offset)
{
    return " (octet " + std::to_string(offset) + ")";
}

} // namespace dxf_texts
