#include "codification/regleCode.h"

#include "codification/tableCodification.h"
#include "services/nombresTexte.h"

bool codeValable(int code)
{
    return code >= 1 && code <= 9999;
}

avisCode validerCode(const CString& saisie, const tableCodification& table, bool creation)
{
    CString texte = saisie;
    if (texte.Trim(blancsSaisie) == L"?") {
        const int libre = table.plusPetitNumeroLibre();
        return {libre == 0 ? verdictCode::aucunLibre : verdictCode::propose, libre};
    }
    const int code = entierDeTexte(texte);
    if (!codeValable(code))
        return {verdictCode::horsBornes};
    if (creation && table.indexCode(code) >= 0)
        return {verdictCode::dejaExistant};
    return {verdictCode::accepte, code};
}
