#include "services/journaux.h"

#include <cstdio>

#include "services/codages.h"
#include "services/fichierOuvert.h"

#include "afx.h"

namespace {

constexpr char retrait[] = "  ";

fichierOuvert ouvrirEnAjout(const wchar_t* chemin)
{
    return fichierOuvert(_wfopen(chemin, L"a+t"));
}

} // namespace

void journaliserMessage(const char* message)
{
    if (const auto fichier = ouvrirEnAjout(L"C:\\QUARVEL4\\SUPPORT\\MESSAGES.MSG"))
        std::fputs(message, fichier.get());
}

void journaliserDebug(int profondeur, const wchar_t* message)
{
    const auto fichier = ouvrirEnAjout(L"DEBUGINFO.MSG");
    if (!fichier)
        return;
    std::fputc('\n', fichier.get());
    for (int i = 0; i < profondeur; ++i)
        std::fputs(retrait, fichier.get());
    std::fputs(versAnsi(message).c_str(), fichier.get());
}
