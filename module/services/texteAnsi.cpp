#include "services/texteAnsi.h"

#include <algorithm>
#include <iterator>

namespace {

// Bytes 0x80 to 0x9F; the others stand for the character of the same number.
constexpr wchar_t caracteresHauts[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                         0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char octetDe(wchar_t c)
{
    if ((c >= 0 && c < 0x80) || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    const auto* haut = std::find(std::begin(caracteresHauts), std::end(caracteresHauts), c);
    return haut == std::end(caracteresHauts) ? '?' : static_cast<char>(0x80 + (haut - std::begin(caracteresHauts)));
}

/// Where wide characters have 16 bits, a character beyond them takes two: the second must not print a "?" of its own.
bool secondeMoitie(std::wstring_view texte, std::size_t i)
{
    return i > 0 && texte[i] >= 0xDC00 && texte[i] <= 0xDFFF && texte[i - 1] >= 0xD800 && texte[i - 1] <= 0xDBFF;
}

wchar_t minuscule(wchar_t c)
{
    if ((c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return static_cast<wchar_t>(c + 0x20);
    switch (c) {
    case 0x0152: // Œ
    case 0x0160: // Š
    case 0x017D: // Ž
        return static_cast<wchar_t>(c + 1);
    case 0x0178: // Ÿ
        return 0xFF;
    default:
        return c;
    }
}

} // namespace

std::string versAnsi(std::wstring_view texte)
{
    std::string octets;
    octets.reserve(texte.size());
    for (std::size_t i = 0; i < texte.size(); ++i)
        if (!secondeMoitie(texte, i))
            octets += octetDe(texte[i]);
    return octets;
}

std::wstring depuisAnsi(std::string_view octets)
{
    std::wstring texte;
    texte.reserve(octets.size());
    for (const char c : octets) {
        const auto octet = static_cast<unsigned char>(c);
        texte += octet >= 0x80 && octet < 0xA0 ? caracteresHauts[octet - 0x80] : static_cast<wchar_t>(octet);
    }
    return texte;
}

std::wstring depuisUtf8(std::string_view octets)
{
    std::wstring texte;
    texte.reserve(octets.size());
    for (std::size_t i = 0; i < octets.size();) {
        const auto premier = static_cast<unsigned char>(octets[i++]);
        unsigned caractere = premier < 0x80 ? premier : premier & (premier < 0xE0 ? 0x1Fu : 0x0Fu);
        int attendus = premier < 0xC0 ? 0 : premier < 0xE0 ? 1 : premier < 0xF0 ? 2 : 3;
        const bool lisible = premier < 0x80 || (premier >= 0xC0 && premier < 0xF0);
        for (; attendus > 0 && i < octets.size() && (octets[i] & 0xC0) == 0x80; --attendus)
            caractere = caractere << 6 | (static_cast<unsigned char>(octets[i++]) & 0x3Fu);
        texte += lisible && attendus == 0 ? static_cast<wchar_t>(caractere) : L'?';
    }
    return texte;
}

void ajouterUtf8(std::string& texte, char32_t caractere)
{
    const auto suite = [&texte, caractere](unsigned decalage) {
        texte += static_cast<char>(0x80u | (caractere >> decalage & 0x3Fu));
    };
    if (caractere < 0x80u) {
        texte += static_cast<char>(caractere);
    } else if (caractere < 0x800u) {
        texte += static_cast<char>(0xC0u | caractere >> 6);
        suite(0);
    } else if (caractere < 0x10000u) {
        texte += static_cast<char>(0xE0u | caractere >> 12);
        suite(6);
        suite(0);
    } else {
        texte += static_cast<char>(0xF0u | caractere >> 18);
        suite(12);
        suite(6);
        suite(0);
    }
}

bool sembleUtf8(std::string_view octets)
{
    bool plusQueAscii = false;
    for (std::size_t i = 0; i < octets.size();) {
        const auto premier = static_cast<unsigned char>(octets[i++]);
        if (premier < 0x80)
            continue;
        const std::size_t suite = premier >= 0xC2 && premier < 0xE0 ? 1 : premier >= 0xE0 && premier < 0xF0 ? 2 : 0;
        if (suite == 0 || octets.size() - i < suite)
            return false;
        // The second byte of three tells the shortest form, and leaves the halves of longer characters out.
        const auto deuxieme = static_cast<unsigned char>(octets[i]);
        if ((premier == 0xE0 && deuxieme < 0xA0) || (premier == 0xED && deuxieme >= 0xA0))
            return false;
        for (const std::size_t fin = i + suite; i < fin; ++i)
            if ((octets[i] & 0xC0) != 0x80)
                return false;
        plusQueAscii = true;
    }
    return plusQueAscii;
}

std::wstring enMinuscules(std::wstring texte)
{
    std::transform(texte.begin(), texte.end(), texte.begin(), minuscule);
    return texte;
}
