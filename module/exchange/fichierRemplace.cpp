#include "exchange/fichierRemplace.h"

#include <cerrno>
#include <random>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// French words between parentheses; nothing for what a user cannot mend.
const wchar_t* causeEcriture(std::error_code erreur)
{
    for (const std::errc plein : {std::errc::no_space_on_device, std::errc::file_too_large})
        if (erreur == plein)
            return L" (plus de place sur le disque)";
    for (const std::errc defendu :
         {std::errc::permission_denied, std::errc::operation_not_permitted, std::errc::read_only_file_system})
        if (erreur == defendu)
            return L" (le fichier ou son dossier est protégé)";
    if (erreur == std::errc::is_a_directory)
        return L" (c'est un dossier)";
    return erreur == std::errc::no_such_file_or_directory ? L" (le dossier n'existe pas)" : L"";
}

} // namespace

std::wstring phraseEcriture(std::wstring_view fichier, issueEcriture issue, std::error_code erreur)
{
    if (issue == issueEcriture::ecrit)
        return {};
    const bool intact = issue == issueEcriture::intact;
    return std::wstring(fichier) + (intact ? L" : écriture impossible" : L" : écriture interrompue") +
           causeEcriture(erreur) +
           (intact ? L" ; le fichier n'a pas été changé." : L" ; le fichier, écrit sur place, est incomplet ou abîmé.");
}

fs::path fichierDuLien(const fs::path& chemin)
{
    std::error_code sansLien;
    const fs::path cible = fs::canonical(chemin, sansLien);
    return sansLien ? chemin : cible;
}

std::error_code refusDeRemplacer(const fs::path& fichier)
{
    std::error_code absent;
    const fs::file_status etat = fs::status(fichier, absent);
    if (fs::is_directory(etat))
        return std::make_error_code(std::errc::is_a_directory);
    constexpr fs::perms ecriture = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    const bool protege = fs::is_regular_file(etat) && (etat.permissions() & ecriture) == fs::perms::none;
    return protege ? std::make_error_code(std::errc::permission_denied) : std::error_code();
}

/// The first one counts: those that follow come of it.
void fichierRemplace::noterErreur()
{
    if (!m_erreur)
        m_erreur = {errno, std::generic_category()};
}

fichierRemplace::fichierRemplace(const fs::path& fichier, maniere m) :
    m_fichier(fichier),
    m_erreur(refusDeRemplacer(fichier))
{
    if (m_erreur)
        return;
    std::error_code sansSuite; // what cannot be asked cannot be opened either
    const fs::file_status etat = fs::status(fichier, sansSuite);
    const bool ordinaire = !fs::exists(etat) || fs::is_regular_file(etat);
    if (m == maniere::aCote && ordinaire) {
        creerACote();
        return;
    }
    m_ouvert.reset(std::fopen(fichier.string().c_str(), "r+b"));
    if (!m_ouvert && errno == ENOENT)
        m_ouvert.reset(std::fopen(fichier.string().c_str(), "wbx"));
    if (!m_ouvert)
        noterErreur();
}

void fichierRemplace::creerACote()
{
    m_fichier = fichierDuLien(m_fichier);
    std::random_device hasard;
    constexpr int essais = 100;
    for (int i = 0; i < essais && !m_ouvert; ++i) {
        m_provisoire = m_fichier;
        m_provisoire += "." + std::to_string(hasard()) + ".tmp";
        m_ouvert.reset(std::fopen(m_provisoire.string().c_str(), "wbx"));
        if (!m_ouvert && errno != EEXIST)
            break;
    }
    if (!m_ouvert)
        noterErreur();
}

fichierRemplace::~fichierRemplace()
{
    if (m_ouvert)
        abandonner();
}

void fichierRemplace::abandonner()
{
    m_ouvert.reset();
    std::error_code sansSuite; // a file too many beside the one that stayed whole
    if (!m_provisoire.empty())
        fs::remove(m_provisoire, sansSuite);
}

bool fichierRemplace::ecrire(std::string_view octets)
{
    m_sain = m_sain && m_ouvert;
    m_entame = m_entame || (m_sain && !octets.empty());
    if (m_sain && std::fwrite(octets.data(), 1, octets.size(), m_ouvert.get()) != octets.size()) {
        noterErreur();
        m_sain = false;
    }
    return m_sain;
}

issueEcriture fichierRemplace::terminer()
{
    if (!m_ouvert)
        return issueEcriture::intact;
    // A full disk may only show when what is kept in memory is written.
    const bool vide = std::fflush(m_ouvert.get()) == 0;
    if (!vide)
        noterErreur();
    m_sain = std::fclose(m_ouvert.release()) == 0 && vide && m_sain;
    if (m_provisoire.empty())
        return m_sain ? issueEcriture::ecrit : m_entame ? issueEcriture::abime : issueEcriture::intact;
    std::error_code refus;
    if (m_sain)
        fs::rename(m_provisoire, m_fichier, refus);
    if (m_sain && !refus)
        return issueEcriture::ecrit;
    if (refus && !m_erreur)
        m_erreur = refus;
    abandonner();
    return issueEcriture::intact;
}
