#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

/// A file mapped read-only, its pages already read, so that figures are those of processor and memory.
class FichierMappe {
public:
    /// @throws std::runtime_error when it cannot be opened or is empty
    explicit FichierMappe(const std::filesystem::path& fichier);
    ~FichierMappe();
    FichierMappe(const FichierMappe&) = delete;
    FichierMappe& operator=(const FichierMappe&) = delete;

    std::span<const char> octets() const { return m_octets; }

private:
    std::span<const char> m_octets;
};

/// What a walk over a text DXF file met; the rows below must agree on it.
struct bilanParcours {
    std::size_t etiquettes = 0;
    std::size_t enregistrements = 0; ///< tags of group 0
    std::size_t nombres = 0;         ///< reals and integers, where they are read
    double somme = 0.0;              ///< of their values: keeps the reading from being optimised away
};

/// Splits a text DXF file into tags: line ends are found 64 bytes at once, group codes read, values left alone.
bilanParcours parcourirEtiquettes(std::span<const char> dxf);

/// The same, and reads every real and integer value with std::from_chars.
bilanParcours parcourirNombres(std::span<const char> dxf);

/// Writes the bytes to a new file, not synced. @return bytes written. @throws std::runtime_error
std::size_t ecrireOctets(std::span<const char> octets, const std::filesystem::path& fichier);
