#include "points/nomValable.h"

#include "points/pointDuDessin.h"
#include "services/codages.h"

std::wstring refusDuNom(const std::wstring& nom)
{
    if (nom.size() > pointDuDessin::longueurNom)
        return L"Le nom d'un point a neuf caractères au plus : « " + nom + L" » en a trop.";
    bool entier = true;
    versAnsi(nom, &entier);
    return entier ? std::wstring() : L"« " + nom + L" » a un caractère que le nom d'un point ne peut pas avoir.";
}
