#pragma once

#include <initializer_list>
#include <string>

// The layout of the reports, spelled out: a short word for each kind of cell.

inline std::string enTete(const std::string& t)
{
    return "<td class=celgris align=center>" + t + "</td>";
}
inline std::string enTeteGauche(const std::string& t)
{
    return "<td class=celgris align='left'>" + t + "</td>";
}
inline std::string centre(const std::string& t)
{
    return "<td class=celnorm align=center>" + t + "</td>";
}
inline std::string gauche(const std::string& t)
{
    return "<td class=celnorm align='left'>" + t + "</td>";
}
inline std::string droite(const std::string& t)
{
    return "<td class=celnorm align=right>" + t + "</td>";
}
inline std::string libelle(int colonnes, const std::string& t)
{
    return "<td class=celgris colspan=" + std::to_string(colonnes) + " align=right>" + t + "</td>";
}
inline std::string total(const std::string& t)
{
    return libelle(4, t);
}

using faireCellule = std::string (*)(const std::string&);

inline std::string chaque(faireCellule faire, std::initializer_list<const char*> textes)
{
    std::string cellules;
    for (const char* t : textes)
        cellules += faire(t);
    return cellules;
}

inline std::string rang(const std::string& cellules)
{
    return "<tr >" + cellules + "</tr>";
}

inline std::string titre(const std::string& t)
{
    return "<P CLASS=titre>" + t + "</P>";
}

inline constexpr char debutTable[] =
    "<table text-align=\"center\" border=\"0\" cellpadding=\"2\" cellspacing =\"0\">\n";

/// All that stands before the first heading.
inline std::string feuille()
{
    const std::string police = " font-family:'Arial','serif';";
    const std::string bordures =
        "margin-left:4px;margin-right:4px;margin-top:4px;margin-bottom:4px;"
        "padding-left:4px;padding-right:4px;padding-top:4px;padding-bottom:4px;"
        "border-left-width:1px;border-right-width:1px;border-top-width:1px;border-bottom-width:1px;"
        "border-left-style:solid;border-right-style:solid;border-top-style:solid;border-bottom-style:solid;"
        "border-left-color:rgb(0,0,0);border-right-color:rgb(0,0,0);border-top-color:rgb(0,0,0);"
        "border-bottom-color:rgb(0,0,0);";
    return "<html>\n<head>\n<style>\n<!--.petit{" + police + "font-size:10pt;}.grand{" + police +
           "font-size:18pt;}.titre{" + police + "font-size:10pt;text-decoration:underline ;}.celnorm{" + police +
           "font-size:10pt;text-decoration:none;" + bordures + "}.celgris{" + police +
           "font-size:10pt;text-decoration:none;background-color:rgb(239,239,239);" + bordures +
           "}\n-->\n</style>\n</head>\n"
           "\n<body bgcolor:rgb(255,255,255) text:rgb(0,0,0) alink:rgb(255,0,0) vlink:rgb(128,0,128) "
           "link:rgb(0,0,255) >\n";
}

/// Sums that are zero but for rounding may print with a sign, and not the same everywhere.
inline std::string sansZeroNegatif(std::string t)
{
    for (std::size_t i = 0; (i = t.find(">-0.0000<", i)) != std::string::npos;)
        t.erase(i + 1, 1);
    return t;
}
