#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "services/fichierOuvert.h"

enum class etatSource {
    saine,
    illisible, ///< it could not be opened, or reading failed on the way
    changee    ///< another program cut it short or wrote to it meanwhile
};

/// Where a reader of point files takes its bytes, in order and once. Files are never held whole: their size has no
/// bound.
class sourceOctets {
public:
    sourceOctets() = default;
    virtual ~sourceOctets() = default;
    sourceOctets(const sourceOctets&) = delete;
    sourceOctets& operator=(const sourceOctets&) = delete;

    /// The first bytes, at most 64 KiB, which lire() gives all the same. To be asked for before it.
    std::string_view debut();
    /// @return bytes written to `cible`, at most `taille`; 0 at the end, or when the source fails
    std::size_t lire(char* cible, std::size_t taille);
    /// Whether reading failed: what was given is not all there was.
    bool enEchec() const { return etat() != etatSource::saine; }
    virtual etatSource etat() const = 0;
    /// About how many bytes are still to come after debut(); 0 when nobody knows.
    virtual std::size_t resteEstime() const { return 0; }

private:
    virtual std::size_t lireSuite(char* cible, std::size_t taille) = 0;

    std::string m_debut;
    std::size_t m_donnes = 0; // of m_debut
};

/// Bytes in memory, which outlive the source.
class sourceMemoire final : public sourceOctets {
public:
    explicit sourceMemoire(std::string_view octets) : m_octets(octets) {}
    etatSource etat() const override { return etatSource::saine; }
    std::size_t resteEstime() const override { return m_octets.size(); }

private:
    std::size_t lireSuite(char* cible, std::size_t taille) override;

    std::string_view m_octets;
};

/// An open file, closed with the source; null: it could not be opened.
class sourceFichier final : public sourceOctets {
public:
    explicit sourceFichier(std::FILE* fichier);
    explicit sourceFichier(const std::filesystem::path& fichier);
    /// A folder opens as a file on some systems; only reading it fails.
    etatSource etat() const override;
    std::size_t resteEstime() const override;

private:
    std::size_t lireSuite(char* cible, std::size_t taille) override;
    long taillePresente() const;

    fichierOuvert m_fichier;
    long m_taille = -1; // when it was opened; -1 for what has none, as a pipe
    bool m_finAtteinte = false;
};

/// A text in UTF-16, given in UTF-8. Halves of characters that stand alone become "?".
class sourceUtf16 final : public sourceOctets {
public:
    sourceUtf16(sourceOctets& source, bool grosBoutiste) : m_source(source), m_grosBoutiste(grosBoutiste) {}
    etatSource etat() const override { return m_source.etat(); }

private:
    std::size_t lireSuite(char* cible, std::size_t taille) override;
    void convertir(std::size_t octets);
    void ajouter(unsigned unite);

    sourceOctets& m_source;
    bool m_grosBoutiste;
    std::string m_lus; // of the source, the odd byte before them
    std::string m_convertis;
    std::size_t m_donnes = 0; // of m_convertis
    unsigned m_moitie = 0;    // first half of a character, 0: none
};
