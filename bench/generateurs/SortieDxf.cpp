#include "generateurs/SortieDxf.h"

#include <bit>
#include <charconv>
#include <stdexcept>

namespace {

constexpr std::size_t tailleTampon = 1 << 20;

bool dans(int code, int de, int a)
{
    return code >= de && code <= a;
}

/// Bytes that an integer of this group takes in the binary form.
int largeurEntier(int code)
{
    if (dans(code, 290, 299))
        return 1;
    if (dans(code, 160, 169))
        return 8;
    if (dans(code, 90, 99) || dans(code, 420, 429) || dans(code, 440, 459) || code == 1071)
        return 4;
    return 2;
}

/// UTF-8 to Latin-1, which is Windows-1252 for the letters the generators use (U+0080 to U+00FF take two bytes).
std::string enLatin1(std::string_view utf8)
{
    std::string resultat;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto octet = static_cast<unsigned char>(utf8[i]);
        if (octet < 0x80) {
            resultat += utf8[i];
        } else if (octet <= 0xC3 && i + 1 < utf8.size()) {
            const auto suite = static_cast<unsigned char>(utf8[++i]);
            resultat += static_cast<char>((octet & 3) << 6 | (suite & 0x3F));
        } else {
            throw std::runtime_error("letter outside Latin-1 in a generated drawing");
        }
    }
    return resultat;
}

/// Shortest text that reads back as the same number, with a point so that it is seen to be a real.
std::string_view texteReel(double reel, std::span<char, 32> place)
{
    char* fin = std::to_chars(place.data(), place.data() + place.size() - 2, reel).ptr;
    if (std::string_view(place.data(), fin).find_first_of(".e") == std::string_view::npos) {
        *fin++ = '.';
        *fin++ = '0';
    }
    return {place.data(), fin};
}

} // namespace

SortieDxf::SortieDxf(const std::filesystem::path& fichier, FormeDxf forme, bool utf8) :
    m_fichier(fichier, std::ios::binary),
    m_forme(forme),
    m_utf8(utf8)
{
    if (!m_fichier)
        throw std::runtime_error(fichier.string() + ": cannot be created");
    m_attente.reserve(tailleTampon + 4096);
    if (forme == FormeDxf::binaire)
        m_attente.append("AutoCAD Binary DXF\r\n\x1a\0", 22);
}

void SortieDxf::code(int code)
{
    if (m_forme == FormeDxf::binaire) {
        octetsDe(static_cast<std::uint64_t>(code), 2);
        return;
    }
    char chiffres[8];
    const char* fin = std::to_chars(chiffres, chiffres + sizeof chiffres, code).ptr;
    const auto longueur = static_cast<std::size_t>(fin - chiffres);
    m_attente.append(longueur < 3 ? 3 - longueur : 0, ' '); // right-aligned on three columns, as hosts write it
    ligne({chiffres, longueur});
}

void SortieDxf::ligne(std::string_view valeur)
{
    m_attente.append(valeur).append("\r\n");
    vider(tailleTampon);
}

void SortieDxf::octetsDe(std::uint64_t valeur, int nombre)
{
    for (int i = 0; i < nombre; ++i, valeur >>= 8)
        m_attente += static_cast<char>(valeur & 0xFF);
    vider(tailleTampon);
}

void SortieDxf::tag(int groupe, std::string_view texte)
{
    code(groupe);
    const std::string converti = m_utf8 ? std::string(texte) : enLatin1(texte);
    if (m_forme == FormeDxf::texte)
        ligne(converti);
    else
        m_attente.append(converti).push_back('\0');
}

void SortieDxf::tag(int groupe, double reel)
{
    code(groupe);
    if (m_forme == FormeDxf::binaire) {
        octetsDe(std::bit_cast<std::uint64_t>(reel), 8);
        return;
    }
    char place[32];
    ligne(texteReel(reel, place));
}

void SortieDxf::tag(int groupe, int entier)
{
    code(groupe);
    if (m_forme == FormeDxf::binaire) {
        octetsDe(static_cast<std::uint64_t>(static_cast<std::int64_t>(entier)), largeurEntier(groupe));
        return;
    }
    char chiffres[16];
    ligne({chiffres, std::to_chars(chiffres, chiffres + sizeof chiffres, entier).ptr});
}

void SortieDxf::tag(int groupe, Poignee poignee)
{
    char chiffres[16];
    char* fin = std::to_chars(chiffres, chiffres + sizeof chiffres, static_cast<std::uint64_t>(poignee), 16).ptr;
    for (char* p = chiffres; p < fin; ++p)
        *p = static_cast<char>(*p >= 'a' ? *p - 'a' + 'A' : *p);
    tag(groupe, std::string_view(chiffres, fin));
}

void SortieDxf::tag(int groupe, std::span<const unsigned char> octets)
{
    code(groupe);
    if (m_forme == FormeDxf::binaire) {
        octetsDe(octets.size(), 1);
        m_attente.append(octets.begin(), octets.end());
        return;
    }
    std::string hexadecimal;
    for (const unsigned char octet : octets) {
        hexadecimal += "0123456789ABCDEF"[octet >> 4];
        hexadecimal += "0123456789ABCDEF"[octet & 15];
    }
    ligne(hexadecimal);
}

void SortieDxf::vider(std::size_t auDela)
{
    if (m_attente.size() < auDela)
        return;
    m_fichier.write(m_attente.data(), static_cast<std::streamsize>(m_attente.size()));
    m_attente.clear();
}

void SortieDxf::fermer()
{
    vider(0);
    m_fichier.close();
    if (!m_fichier)
        throw std::runtime_error("generated drawing not wholly written");
}
