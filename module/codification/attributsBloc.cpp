#include "codification/attributsBloc.h"

bool memeEtiquette(const AcDbAttribute& attribut, const CString& etiquette)
{
    return etiquette.CompareNoCase(attribut.tagConst()) == 0;
}

Acad::ErrorStatus changerTexte(AcDbAttribute& attribut, const CString& texte)
{
    if (texte == attribut.textStringConst())
        return Acad::eOk;
    const Acad::ErrorStatus ouverture = attribut.upgradeOpen();
    return ouverture == Acad::eOk ? attribut.setTextString(texte) : ouverture;
}
