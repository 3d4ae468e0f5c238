#pragma once

#include <string>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "codification/codificationDuModule.h"
#include "codification/symbolePoint.h"
#include "ed/Kernel.h"
#include "points/listePointsDuDessin.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "supportEssai.h"

/// What the tests of symbols share: one empty drawing, the default codes, and a look into what was drawn.

inline std::string nomCalque(const AcDbEntity& entite)
{
    ACHAR* nom = entite.layer();
    const CStringA texte(nom);
    acutDelString(nom);
    return texte.GetString();
}

inline std::string nomBloc(const AcDbBlockReference& reference)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> bloc(reference.blockTableRecord());
    const ACHAR* nom = nullptr;
    bloc->getName(nom);
    return CStringA(nom).GetString();
}

using referenceLue = AcDbObjectPointer<AcDbBlockReference>;

class SymbolesTest : public testing::Test {
protected:
    void SetUp() override
    {
        codificationDuModule().initDefauts();
        reglerFacteurSymboles(1.0);
    }
    void TearDown() override
    {
        reglerFacteurSymboles(1.0);
        DocumentList::instance().closeAll();
    }

    static pointDuDessin point(const wchar_t* nom, double x, double y, double z, int code = 1)
    {
        pointDuDessin p;
        p.setParams(nom, AcGePoint3d(x, y, z), code);
        return p;
    }

    Kernel noyau;
    AcDbDatabase& db = *DocumentList::instance().create().database();
};
