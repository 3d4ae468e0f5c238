#include "codification/attributsBloc.h"

bool memeEtiquette(const AcDbAttribute& attribut, const CString& etiquette)
{
    return etiquette.CompareNoCase(attribut.tagConst()) == 0;
}

bool changerTexte(AcDbAttribute& attribut, const CString& texte)
{
    return texte != attribut.textStringConst() && attribut.upgradeOpen() == Acad::eOk &&
           attribut.setTextString(texte) == Acad::eOk;
}
