#include "codification/attributsBloc.h"

#include "services/lettres.h"

bool memeEtiquette(const AcDbAttribute& attribut, std::wstring_view etiquette)
{
    return memesLettres(etiquette, attribut.tagConst());
}

Acad::ErrorStatus changerTexte(AcDbAttribute& attribut, const std::wstring& texte)
{
    if (texte == attribut.textStringConst())
        return Acad::eOk;
    const Acad::ErrorStatus ouverture = attribut.upgradeOpen();
    return ouverture == Acad::eOk ? attribut.setTextString(texte.c_str()) : ouverture;
}
