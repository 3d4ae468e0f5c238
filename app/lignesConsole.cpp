#include "lignesConsole.h"

#include <iostream>
#include <string_view>

#include "platform/CodePage.h"

void avertir(const std::string& texte)
{
    std::cout.flush();
    std::cerr << "Attention : " << texte << '\n';
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
