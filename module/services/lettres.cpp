#include "services/lettres.h"

#include <algorithm>
#include <array>

#include "services/codages.h"

namespace {

template <class Vue>
Vue debarrasser(Vue texte, Vue blancs)
{
    const std::size_t debut = texte.find_first_not_of(blancs);
    if (debut == Vue::npos)
        return {};
    return texte.substr(debut, texte.find_last_not_of(blancs) - debut + 1);
}

std::array<char, 256> minusculesDesOctets()
{
    std::array<char, 256> minuscules;
    for (std::size_t i = 0; i < minuscules.size(); ++i) {
        const char octet = static_cast<char>(i);
        minuscules[i] = versAnsi(enMinuscules(depuisAnsi({&octet, 1}))).front();
    }
    return minuscules;
}

} // namespace

wchar_t minuscule(wchar_t c)
{
    if ((c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) // 0xD7 is the multiplication sign
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

wchar_t majuscule(wchar_t c)
{
    if ((c >= L'a' && c <= L'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) // 0xF7 is the division sign
        return static_cast<wchar_t>(c - 0x20);
    switch (c) {
    case 0x0153: // œ
    case 0x0161: // š
    case 0x017E: // ž
        return static_cast<wchar_t>(c - 1);
    case 0xFF: // ÿ
        return 0x0178;
    default:
        return c;
    }
}

char minuscule8(char c)
{
    static const std::array<char, 256> minuscules = minusculesDesOctets();
    return minuscules[static_cast<unsigned char>(c)];
}

std::wstring enMinuscules(std::wstring texte)
{
    std::transform(texte.begin(), texte.end(), texte.begin(), minuscule);
    return texte;
}

std::wstring enMajuscules(std::wstring texte)
{
    std::transform(texte.begin(), texte.end(), texte.begin(), majuscule);
    return texte;
}

bool memesLettres(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char c, char d) { return minuscule8(c) == minuscule8(d); });
}

bool memesLettres(std::wstring_view a, std::wstring_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t c, wchar_t d) { return minuscule(c) == minuscule(d); });
}

std::string_view sansBlancs(std::string_view texte, std::string_view blancs)
{
    return debarrasser(texte, blancs);
}

std::wstring_view sansBlancs(std::wstring_view texte, std::wstring_view blancs)
{
    return debarrasser(texte, blancs);
}

std::vector<std::wstring_view> parties(std::wstring_view texte, std::wstring_view separateurs)
{
    std::vector<std::wstring_view> trouvees;
    while (true) {
        texte.remove_prefix(std::min(texte.find_first_not_of(separateurs), texte.size()));
        if (texte.empty())
            return trouvees;
        trouvees.push_back(texte.substr(0, texte.find_first_of(separateurs)));
        texte.remove_prefix(trouvees.back().size());
    }
}
