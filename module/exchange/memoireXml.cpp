#include "exchange/memoireXml.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t plusDeMemoire = 64 << 20;
constexpr std::size_t enTete = alignof(std::max_align_t); // before each piece: its size

thread_local std::size_t memoirePrise = 0;

char* debutDe(void* piece)
{
    return piece ? static_cast<char*>(piece) - enTete : nullptr;
}

std::size_t tailleDe(void* piece)
{
    std::size_t taille = 0;
    if (piece)
        std::memcpy(&taille, debutDe(piece), sizeof taille);
    return taille;
}

void* reprendre(void* piece, std::size_t taille)
{
    const std::size_t autres = memoirePrise - tailleDe(piece);
    if (taille > plusDeMemoire - autres)
        return nullptr;
    char* const nouvelle = static_cast<char*>(std::realloc(debutDe(piece), enTete + taille));
    if (!nouvelle)
        return nullptr;
    memoirePrise = autres + taille;
    std::memcpy(nouvelle, &taille, sizeof taille);
    return nouvelle + enTete;
}

void* prendre(std::size_t taille)
{
    return reprendre(nullptr, taille);
}

void rendre(void* piece)
{
    memoirePrise -= tailleDe(piece);
    std::free(debutDe(piece));
}

} // namespace

const XML_Memory_Handling_Suite* memoireXmlBornee()
{
    static constexpr XML_Memory_Handling_Suite fonctions{prendre, reprendre, rendre};
    return &fonctions;
}
