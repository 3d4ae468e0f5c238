#include "services/blocFichier.h"

#include "services/definitionsDessin.h"
#include "services/lettres.h"

#include "dbmain.h"

namespace {

constexpr std::wstring_view extensionDessin = L".dwg";

bool finitParDwg(std::wstring_view chemin)
{
    return chemin.size() >= extensionDessin.size() &&
           memesLettres(chemin.substr(chemin.size() - extensionDessin.size()), extensionDessin);
}

} // namespace

std::wstring nomBlocDeFichier(std::wstring_view chemin)
{
    std::wstring_view nom = chemin.substr(chemin.find_last_of(L"\\/") + 1); // all of it without separator
    if (finitParDwg(nom))
        nom.remove_suffix(extensionDessin.size());
    return std::wstring(nom);
}

AcDbObjectId blocDeFichier(AcDbDatabase& db, const std::wstring& chemin)
{
    const std::wstring nom = nomBlocDeFichier(chemin);
    if (const AcDbObjectId present = blocNomme(db, nom); !present.isNull())
        return present;
    AcDbDatabase lu(false, true);
    const std::wstring fichier = finitParDwg(chemin) ? chemin : chemin + std::wstring(extensionDessin);
    if (lu.readDwgFile(fichier.c_str()) != Acad::eOk)
        return {};
    AcDbObjectId id;
    return db.insert(id, nom.c_str(), &lu) == Acad::eOk ? id : AcDbObjectId();
}
