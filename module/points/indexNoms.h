#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// A point name as the index knows it: at most nine lower-case characters of the code page.
/// Which blanks are stripped at the ends depends on the operation, so the caller says it.
class cleNom {
public:
    static constexpr std::size_t longueurMax = 9;

    /// The key of a point's own name.
    cleNom(std::string_view nom, std::string_view blancs);
    /// The key of a name typed by a user; none when no point can bear it: it is longer than a name may be, or holds a
    /// character outside the code page.
    static std::optional<cleNom> deTexte(const wchar_t* nom, std::string_view blancs);

    bool operator==(const cleNom&) const = default;
    std::uint32_t hachage() const;

private:
    friend class indexNoms;
    cleNom() = default;

    std::array<char, 12> lettres{}; // padded with zeros
};

/// Finds the position of the point indexed last under a name.
/// Open addressing in one flat array: 16 bytes a slot and no allocation a name, which beat a map of wide texts four to
/// one on a million points. Adding and finding take constant time however many there are.
class indexNoms {
public:
    /// The position under this key, or -1.
    int chercher(const cleNom& cle) const;
    void poser(const cleNom& cle, int position);
    void retirer(const cleNom& cle);
    /// Empties the index and releases its memory.
    void vider();
    /// Makes room for `nombre` names at once.
    void prevoir(std::size_t nombre);

private:
    struct entree {
        cleNom cle;
        std::int32_t position = -1; // -1: free slot
    };

    std::size_t place(const cleNom& cle) const;
    void agrandir(std::size_t taille);

    std::vector<entree> table; // empty, or a power of two of slots, at most half of them taken
    std::size_t nombre = 0;
};
