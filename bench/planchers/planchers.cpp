#include "planchers/planchers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <stdexcept>

#include <emmintrin.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A descriptor that closes itself.
struct Descripteur {
    int numero;
    explicit Descripteur(int n, const std::filesystem::path& fichier) : numero(n)
    {
        if (n < 0)
            throw std::runtime_error(fichier.string() + ": cannot be opened");
    }
    ~Descripteur() { close(numero); }
    Descripteur(const Descripteur&) = delete;
    Descripteur& operator=(const Descripteur&) = delete;
};

enum class Nature : unsigned char { autre, reel, entier };

/// What the value of each group is, by the ranges of the format.
constexpr auto natures = [] {
    std::array<Nature, 1072> table{};
    struct plage {
        std::size_t de, a;
        Nature nature;
    };
    constexpr plage plages[] = {{10, 59, Nature::reel},      {60, 99, Nature::entier},   {110, 149, Nature::reel},
                                {160, 179, Nature::entier},  {210, 239, Nature::reel},   {270, 299, Nature::entier},
                                {370, 389, Nature::entier},  {400, 409, Nature::entier}, {420, 429, Nature::entier},
                                {440, 459, Nature::entier},  {460, 469, Nature::reel},   {1010, 1059, Nature::reel},
                                {1060, 1071, Nature::entier}};
    for (const plage& p : plages)
        std::fill(table.begin() + static_cast<std::ptrdiff_t>(p.de),
                  table.begin() + static_cast<std::ptrdiff_t>(p.a) + 1, p.nature);
    return table;
}();

/// Bit i is set where byte i of these 64 is a line feed.
std::uint64_t finsDeLigne(const char* p)
{
    const __m128i lf = _mm_set1_epi8('\n');
    std::uint64_t masque = 0;
    for (int k = 0; k < 4; ++k) {
        const __m128i seize = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16 * k));
        const auto bits = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(seize, lf)));
        masque |= static_cast<std::uint64_t>(bits) << (16 * k);
    }
    return masque;
}

int codeDeGroupe(const char* p, const char* fin)
{
    while (p < fin && *p == ' ')
        ++p;
    int code = 0;
    for (; p < fin && *p >= '0' && *p <= '9'; ++p)
        code = 10 * code + (*p - '0');
    return code;
}

/// Calls `recevoir(code, valueBegin, valueEnd)` for each tag. Even lines are codes, odd ones values.
template <class Recevoir>
void parcourir(std::span<const char> dxf, Recevoir recevoir)
{
    const char* const fin = dxf.data() + dxf.size();
    const char* debutLigne = dxf.data();
    bool estCode = true;
    int code = 0;
    const auto ligne = [&](const char* finLigne) {
        if (estCode)
            code = codeDeGroupe(debutLigne, finLigne);
        else
            recevoir(code, debutLigne, finLigne);
        estCode = !estCode;
        debutLigne = finLigne + 1;
    };
    const char* bloc = dxf.data();
    for (; fin - bloc >= 64; bloc += 64) {
        for (std::uint64_t masque = finsDeLigne(bloc); masque != 0; masque &= masque - 1)
            ligne(bloc + std::countr_zero(masque));
    }
    for (; bloc < fin; ++bloc) {
        if (*bloc == '\n')
            ligne(bloc);
    }
    if (debutLigne < fin)
        ligne(fin);
}

template <class Nombre>
double lire(const char* p, const char* fin)
{
    Nombre nombre{};
    while (p < fin && *p == ' ')
        ++p;
    std::from_chars(p, fin, nombre);
    return static_cast<double>(nombre);
}

} // namespace

FichierMappe::FichierMappe(const std::filesystem::path& fichier)
{
    const Descripteur source(open(fichier.c_str(), O_RDONLY | O_CLOEXEC), fichier);
    struct stat etat {};
    if (fstat(source.numero, &etat) != 0 || etat.st_size <= 0)
        throw std::runtime_error(fichier.string() + ": empty or unreadable");
    const auto taille = static_cast<std::size_t>(etat.st_size);
    void* adresse = mmap(nullptr, taille, PROT_READ, MAP_PRIVATE | MAP_POPULATE, source.numero, 0);
    if (adresse == MAP_FAILED)
        throw std::runtime_error(fichier.string() + ": cannot be mapped");
    m_octets = {static_cast<const char*>(adresse), taille};
}

FichierMappe::~FichierMappe()
{
    munmap(const_cast<char*>(m_octets.data()), m_octets.size());
}

bilanParcours parcourirEtiquettes(std::span<const char> dxf)
{
    bilanParcours bilan;
    parcourir(dxf, [&](int code, const char*, const char*) {
        ++bilan.etiquettes;
        bilan.enregistrements += code == 0;
    });
    return bilan;
}

bilanParcours parcourirNombres(std::span<const char> dxf)
{
    bilanParcours bilan;
    parcourir(dxf, [&](int code, const char* p, const char* fin) {
        ++bilan.etiquettes;
        bilan.enregistrements += code == 0;
        const auto groupe = static_cast<std::size_t>(code);
        const Nature nature = groupe < natures.size() ? natures[groupe] : Nature::autre;
        if (nature == Nature::autre)
            return;
        ++bilan.nombres;
        bilan.somme += nature == Nature::reel ? lire<double>(p, fin) : lire<std::int64_t>(p, fin);
    });
    return bilan;
}

std::size_t ecrireOctets(std::span<const char> octets, const std::filesystem::path& fichier)
{
    const Descripteur cible(open(fichier.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600), fichier);
    std::size_t ecrits = 0;
    while (ecrits < octets.size()) {
        const ssize_t n = write(cible.numero, octets.data() + ecrits, octets.size() - ecrits);
        if (n <= 0)
            throw std::runtime_error(fichier.string() + ": write refused");
        ecrits += static_cast<std::size_t>(n);
    }
    return ecrits;
}
