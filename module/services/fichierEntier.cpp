#include "services/fichierEntier.h"

#include <array>
#include <cstdio>
#include <memory>
#include <random>

namespace {

struct fermeture {
    void operator()(std::FILE* f) const { std::fclose(f); }
};
using fichierOuvert = std::unique_ptr<std::FILE, fermeture>;

bool ecrire(const wchar_t* chemin, const std::string& octets)
{
    fichierOuvert fichier(_wfopen(chemin, L"wb"));
    const bool ecrit = fichier && std::fwrite(octets.data(), 1, octets.size(), fichier.get()) == octets.size();
    return fichier && std::fclose(fichier.release()) == 0 && ecrit;
}

} // namespace

std::optional<std::string> lireFichier(const wchar_t* chemin)
{
    const fichierOuvert fichier(_wfopen(chemin, L"rb"));
    if (!fichier)
        return std::nullopt;
    std::string octets;
    std::array<char, 65536> tampon;
    for (std::size_t lus; (lus = std::fread(tampon.data(), 1, tampon.size(), fichier.get())) > 0;)
        octets.append(tampon.data(), lus);
    return std::ferror(fichier.get()) ? std::nullopt : std::optional(octets);
}

bool remplacerFichier(const wchar_t* chemin, const std::string& octets)
{
    CString provisoire; // of this save alone: another program may save the same file
    provisoire.Format(L"%s.%08x.tmp", chemin, std::random_device()());
    if (ecrire(provisoire, octets) && MoveFileExW(provisoire, chemin, MOVEFILE_REPLACE_EXISTING))
        return true;
    DeleteFileW(provisoire);
    return false;
}

std::optional<CString> mettreDeCote(const wchar_t* chemin)
{
    constexpr int plusGrandNumero = 1000;
    for (int numero = 1; numero <= plusGrandNumero; ++numero) {
        CString copie = CString(chemin) + L".abime";
        if (numero > 1)
            copie.AppendFormat(L"-%d", numero);
        if (CopyFileW(chemin, copie, TRUE))
            return copie;
        const auto raison = static_cast<LSTATUS>(GetLastError());
        if (raison == ERROR_FILE_NOT_FOUND || raison == ERROR_PATH_NOT_FOUND)
            return CString();
        if (raison != ERROR_FILE_EXISTS)
            break;
    }
    return std::nullopt;
}
