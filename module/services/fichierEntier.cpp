#include "services/fichierEntier.h"

#include <array>
#include <cstdio>
#include <random>

#include "services/fichierOuvert.h"

#include "afx.h"

namespace {

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
    // Of this save alone: another program may save the same file.
    const std::wstring provisoire = chemin + (L"." + std::to_wstring(std::random_device()())) + L".tmp";
    if (ecrire(provisoire.c_str(), octets) && MoveFileExW(provisoire.c_str(), chemin, MOVEFILE_REPLACE_EXISTING))
        return true;
    DeleteFileW(provisoire.c_str());
    return false;
}

std::optional<std::wstring> mettreDeCote(const wchar_t* chemin)
{
    constexpr int plusGrandNumero = 1000;
    for (int numero = 1; numero <= plusGrandNumero; ++numero) {
        std::wstring copie = chemin + std::wstring(L".abime");
        if (numero > 1)
            copie += L"-" + std::to_wstring(numero);
        if (CopyFileW(chemin, copie.c_str(), TRUE))
            return copie;
        const auto raison = static_cast<LSTATUS>(GetLastError());
        if (raison == ERROR_FILE_NOT_FOUND || raison == ERROR_PATH_NOT_FOUND)
            return std::wstring();
        if (raison != ERROR_FILE_EXISTS)
            break;
    }
    return std::nullopt;
}
