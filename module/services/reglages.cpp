#include "services/reglages.h"

#include "services/registre.h"

namespace {

constexpr const wchar_t* cleReglages = L"Software\\Ostrakon\\Quarvel5\\Reglages";

} // namespace

std::wstring lireReglage(const wchar_t* nom, const wchar_t* defaut)
{
    return lireTexteRegistre(HKEY_CURRENT_USER, cleReglages, nom).value_or(defaut);
}

void garderReglage(const wchar_t* nom, const std::wstring& valeur)
{
    ecrireTexteRegistre(cleReglages, nom, valeur);
}
