#include "services/texte8bits.h"

#include <algorithm>
#include <cstring>
#include <cwchar>

#include "windows.h"

char minuscule8(char c)
{
    const auto u = static_cast<unsigned char>(c);
    if ((u >= 'A' && u <= 'Z') || (u >= 0xC0 && u <= 0xDE && u != 0xD7)) // 0xD7 is the multiplication sign
        return static_cast<char>(u + 0x20);
    if (u == 0x8A || u == 0x8C || u == 0x8E) // S caron, OE, Z caron
        return static_cast<char>(u + 0x10);
    return u == 0x9F ? static_cast<char>(0xFF) : c; // Y diaeresis stands apart
}

bool memesLettres(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char c, char d) { return minuscule8(c) == minuscule8(d); });
}

std::string_view sansBlancs(std::string_view texte, std::string_view blancs)
{
    const std::size_t debut = texte.find_first_not_of(blancs);
    if (debut == std::string_view::npos)
        return {};
    return texte.substr(debut, texte.find_last_not_of(blancs) - debut + 1);
}

void convertirEn8bits(const wchar_t* texte, char* cible, std::size_t taille)
{
    std::memset(cible, 0, taille);
    if (!texte)
        return;
    // One byte a character in this page, so cutting before converting is enough.
    const std::size_t longueur = std::min(std::wcslen(texte), taille - 1);
    if (longueur > 0)
        WideCharToMultiByte(CP_ACP, 0, texte, static_cast<int>(longueur), cible, static_cast<int>(longueur), nullptr,
                            nullptr);
}
