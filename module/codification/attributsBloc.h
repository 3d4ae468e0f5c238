#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "dbents.h"

/// Opens the attributes of a reference one after the other and hands them to `action` (AcDbAttribute&). Those that
/// cannot be opened are passed over.
template <class Action>
void pourChaqueAttribut(const AcDbBlockReference& reference, AcDb::OpenMode mode, Action action)
{
    const std::unique_ptr<AcDbObjectIterator> it(reference.attributeIterator());
    for (it->start(); !it->done(); it->step()) {
        const AcDbObjectPointer<AcDbAttribute> attribut(it->objectId(), mode);
        if (attribut.openStatus() == Acad::eOk)
            action(*attribut.object());
    }
}

/// Letter case does not count.
bool memeEtiquette(const AcDbAttribute& attribut, std::wstring_view etiquette);

/// Writes a text that differs to an attribute open for read. @return why it could not, or eOk.
Acad::ErrorStatus changerTexte(AcDbAttribute& attribut, const std::wstring& texte);
