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

std::wstring lettresSuivantes(std::wstring texte)
{
    for (auto lettre = texte.rbegin(); lettre != texte.rend(); ++lettre) {
        if (*lettre != L'Z') {
            ++*lettre;
            return texte;
        }
        *lettre = L'A';
    }
    return L"A" + texte;
}
