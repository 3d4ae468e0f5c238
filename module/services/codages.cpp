#include "services/codages.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <iterator>

namespace {

// Bytes 0x80 to 0x9F; the others stand for the character of the same number.
constexpr char32_t caracteresHauts[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                          0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// -1 outside the code page.
int octetDe(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<int>(c);
    const auto* haut = std::find(std::begin(caracteresHauts), std::end(caracteresHauts), c);
    return haut == std::end(caracteresHauts) ? -1 : static_cast<int>(0x80 + (haut - std::begin(caracteresHauts)));
}

bool premiereMoitie(char32_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}

bool secondeMoitie(char32_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

constexpr char32_t aucun = 0xFFFFFFFF;
constexpr char32_t premierHorsDe16Bits = 0x10000;

/// The next character, which is taken off; `aucun` for half of a pair. Where wide characters have 16 bits, one beyond
/// them takes two.
char32_t prendreCaractere(std::wstring_view& texte)
{
    const auto c = static_cast<char32_t>(texte.front());
    texte.remove_prefix(1);
    if (premiereMoitie(c) && !texte.empty() && secondeMoitie(static_cast<char32_t>(texte.front()))) {
        const auto seconde = static_cast<char32_t>(texte.front());
        texte.remove_prefix(1);
        return premierHorsDe16Bits + ((c - 0xD800) << 10) + (seconde - 0xDC00);
    }
    return premiereMoitie(c) || secondeMoitie(c) || c > 0x10FFFF ? aucun : c;
}

/// The next sequence, which is taken off; `aucun` when it is none.
char32_t prendreSequence(std::string_view& octets)
{
    const auto premier = static_cast<unsigned char>(octets.front());
    octets.remove_prefix(1);
    if (premier < 0x80)
        return premier;
    const int longueur = premier < 0xC0 ? 1 : premier < 0xE0 ? 2 : premier < 0xF0 ? 3 : premier < 0xF8 ? 4 : 1;
    if (longueur == 1)
        return aucun;
    constexpr char32_t moindres[] = {0, 0, 0x80, 0x800, premierHorsDe16Bits};
    char32_t c = premier & (0x7Fu >> longueur);
    int attendus = longueur - 1;
    for (; attendus > 0 && !octets.empty() && (octets.front() & 0xC0) == 0x80; --attendus) {
        c = c << 6 | (static_cast<unsigned char>(octets.front()) & 0x3Fu);
        octets.remove_prefix(1);
    }
    const bool faux = attendus > 0 || c < moindres[longueur] || c > 0x10FFFF || premiereMoitie(c) || secondeMoitie(c);
    return faux ? aucun : c;
}

void ajouter(std::wstring& texte, char32_t c)
{
    if (sizeof(wchar_t) > 2 || c < premierHorsDe16Bits) {
        texte += static_cast<wchar_t>(c);
        return;
    }
    texte += static_cast<wchar_t>(0xD800 + ((c - premierHorsDe16Bits) >> 10));
    texte += static_cast<wchar_t>(0xDC00 + ((c - premierHorsDe16Bits) & 0x3FF));
}

} // namespace

void ajouterUtf8(std::string& octets, char32_t c)
{
    const int suite = c < 0x80 ? 0 : c < 0x800 ? 1 : c < premierHorsDe16Bits ? 2 : 3;
    constexpr unsigned debuts[] = {0, 0xC0, 0xE0, 0xF0};
    octets += static_cast<char>(debuts[suite] | (c >> (6 * suite)));
    for (int i = suite - 1; i >= 0; --i)
        octets += static_cast<char>(0x80u | ((c >> (6 * i)) & 0x3Fu));
}

std::string versAnsi(std::wstring_view texte, bool* entier)
{
    std::string octets;
    octets.reserve(texte.size());
    bool tous = true;
    while (!texte.empty()) {
        const char32_t c = prendreCaractere(texte);
        const int octet = octetDe(c);
        tous = tous && octet >= 0;
        octets += octet >= 0 ? static_cast<char>(octet) : '?';
    }
    if (entier)
        *entier = tous;
    return octets;
}

void versAnsi(const wchar_t* texte, char* cible, std::size_t taille)
{
    std::memset(cible, 0, taille);
    if (!texte)
        return;
    // One byte a character at most in this page, so cutting before converting is enough.
    const std::string octets = versAnsi(std::wstring_view(texte, wcsnlen(texte, taille - 1)));
    std::memcpy(cible, octets.data(), octets.size());
}

std::wstring depuisAnsi(std::string_view octets)
{
    std::wstring texte;
    texte.reserve(octets.size());
    for (const char c : octets) {
        const auto octet = static_cast<unsigned char>(c);
        texte += static_cast<wchar_t>(octet >= 0x80 && octet < 0xA0 ? caracteresHauts[octet - 0x80] : octet);
    }
    return texte;
}

std::string versUtf8(std::wstring_view texte)
{
    std::string octets;
    octets.reserve(texte.size());
    while (!texte.empty()) {
        const char32_t c = prendreCaractere(texte);
        ajouterUtf8(octets, c == aucun ? U'?' : c);
    }
    return octets;
}

std::wstring depuisUtf8(std::string_view octets, bool* entier)
{
    std::wstring texte;
    texte.reserve(octets.size());
    bool tous = true;
    while (!octets.empty()) {
        const char32_t c = prendreSequence(octets);
        tous = tous && c != aucun;
        ajouter(texte, c == aucun ? U'?' : c);
    }
    if (entier)
        *entier = tous;
    return texte;
}

bool estUtf8(std::string_view octets)
{
    bool entier = true;
    depuisUtf8(octets, &entier);
    return entier;
}

bool sembleUtf8(std::string_view octets)
{
    bool entier = true;
    const std::wstring texte = depuisUtf8(octets, &entier);
    const auto large = [](wchar_t c) { return c > 0x7F; };
    const auto tropLarge = [](wchar_t c) { return static_cast<char32_t>(c) >= premierHorsDe16Bits; };
    return entier && std::ranges::any_of(texte, large) && std::ranges::none_of(texte, tropLarge);
}
