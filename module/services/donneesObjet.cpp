#include "services/donneesObjet.h"

#include <memory>

#include "services/chaineResbuf.h"

#include "dbdict.h"
#include "dbxrecrd.h"

namespace {

AcDbObjectId dictionnairePour(const AcDbObjectId& objet)
{
    const AcDbObjectPointer<AcDbObject> ouvert(objet, AcDb::kForWrite, false, true);
    if (ouvert.openStatus() != Acad::eOk)
        return {};
    if (ouvert->extensionDictionary().isNull())
        ouvert->createExtensionDictionary();
    return ouvert->extensionDictionary();
}

AcDbObjectId dictionnaireDe(const AcDbObjectId& objet)
{
    const AcDbObjectPointer<AcDbObject> ouvert(objet);
    return ouvert.openStatus() == Acad::eOk ? ouvert->extensionDictionary() : AcDbObjectId();
}

} // namespace

resbuf* lireDonneesObjet(const AcDbObjectId& objet, const wchar_t* cle)
{
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(dictionnaireDe(objet));
    AcDbObjectId id;
    if (dictionnaire.openStatus() != Acad::eOk || dictionnaire->getAt(cle, id) != Acad::eOk)
        return nullptr;
    const AcDbObjectPointer<AcDbXrecord> enregistrement(id);
    resbuf* chaine = nullptr;
    if (enregistrement.openStatus() == Acad::eOk)
        enregistrement->rbChain(&chaine);
    return chaine;
}

bool ecrireDonneesObjet(const AcDbObjectId& objet, const wchar_t* cle, const resbuf& donnees)
{
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(dictionnairePour(objet), AcDb::kForWrite);
    auto enregistrement = std::make_unique<AcDbXrecord>();
    AcDbObjectId id;
    if (dictionnaire.openStatus() != Acad::eOk || enregistrement->setFromRbChain(donnees) != Acad::eOk ||
        dictionnaire->setAt(cle, enregistrement.get(), id) != Acad::eOk)
        return false;
    enregistrement.release()->close(); // the drawing's from now on
    return true;
}

bool porteDesDonnees(const AcDbObject& objet)
{
    return !objet.extensionDictionary().isNull() || chaineResbuf(objet.xData()).tete();
}
