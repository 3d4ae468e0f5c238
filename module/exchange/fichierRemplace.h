#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "services/fichierOuvert.h"

/// What writing a file came to.
enum class issueEcriture {
    ecrit,
    intact, ///< not written; a file that was there is as it was
    abime   ///< written in place, in part: a file that was there is damaged
};

/// French sentence for the user; empty when it was written.
/// @param erreur of fichierRemplace: why it was not
std::wstring phraseEcriture(std::wstring_view fichier, issueEcriture issue, std::error_code erreur = {});

/// The file that a link leads to: it is replaced, not the link. Any other path as it is.
std::filesystem::path fichierDuLien(const std::filesystem::path& chemin);

/// Why what stands under that name is not to be replaced: a folder, or a file that is marked as read-only. None when it
/// may be.
std::error_code refusDeRemplacer(const std::filesystem::path& fichier);

/// A file being written: either beside the one it replaces, which it takes the place of when it is whole, or in place,
/// without truncation, so that a longer file keeps its old end. Devices and the like are written in place.
class fichierRemplace {
public:
    enum class maniere { aCote, surPlace };

    fichierRemplace(const std::filesystem::path& fichier, maniere m);
    ~fichierRemplace();
    fichierRemplace(const fichierRemplace&) = delete;
    fichierRemplace& operator=(const fichierRemplace&) = delete;

    /// After a failure nothing more is written. @return false once something failed
    bool ecrire(std::string_view octets);
    /// Ends it. Without this call, what was written beside is removed.
    issueEcriture terminer();
    /// What the system said when something failed first; none while nothing did.
    std::error_code erreur() const { return m_erreur; }

private:
    void creerACote();
    void abandonner();
    void noterErreur();

    std::filesystem::path m_fichier, m_provisoire; // the second empty: in place
    fichierOuvert m_ouvert;
    bool m_sain = true, m_entame = false;
    std::error_code m_erreur;
};
