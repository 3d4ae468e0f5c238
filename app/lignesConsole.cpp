#include "lignesConsole.h"

#include <algorithm>
#include <iostream>
#include <string_view>

#include "platform/CodePage.h"

void avertir(const std::string& texte)
{
    std::cout.flush();
    std::cerr << "Attention : " << texte << '\n';
}

void avertirDesPremiers(const std::vector<std::string>& textes)
{
    constexpr std::size_t montres = 20;
    for (std::size_t i = 0; i < std::min(textes.size(), montres); ++i)
        avertir(textes[i]);
    if (textes.size() > montres)
        std::cerr << "... et " << textes.size() - montres << " autres avertissements (tous dans --json).\n";
}

void lignesConsole::ecrire(const std::wstring& texte)
{
    std::wstring_view reste = texte;
    if (debutDeLigne && reste.starts_with(L'\n'))
        reste.remove_prefix(1);
    if (reste.empty())
        return;
    flux << platform::utf8FromWide(reste);
    debutDeLigne = reste.ends_with(L'\n');
}

void lignesConsole::terminer()
{
    if (!debutDeLigne)
        flux << '\n';
    debutDeLigne = true;
}
