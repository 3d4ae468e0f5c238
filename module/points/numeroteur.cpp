#include "points/numeroteur.h"

int numeroteur::serieSuffixeSuivante()
{
    suffixe = lettresSuivantes(suffixe);
    return 0; // no number of its own
}

int numeroteur::seriePrefixeSuivante()
{
    prefixe = lettresSuivantes(prefixe);
    return 0;
}

CString lettresSuivantes(CString texte)
{
    for (int i = texte.GetLength() - 1; i >= 0; --i) {
        const wchar_t lettre = texte.GetAt(i);
        if (lettre != L'Z') {
            texte.SetAt(i, lettre + 1);
            return texte;
        }
        texte.SetAt(i, L'A');
    }
    return L"A" + texte;
}
