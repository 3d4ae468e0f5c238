#include "suiviDessins.h"

#include "points/projetDansDessin.h"

#include "dbents.h"

class suiviDessins::dessinSuivi : public AcDbDatabaseReactor {
public:
    explicit dessinSuivi(AcDbDatabase* leDessin) : dessin(leDessin) { dessin->addReactor(this); }
    ~dessinSuivi() override
    {
        dessin->removeReactor(this);
        if (tablesPoints == &projet)
            setSrcInfosTopo(nullptr, nullptr, 0, 0);
    }

    /// The project is read from the drawing once: read again at each change of drawing, it would lose what was added
    /// since the last save.
    void devenirCourant()
    {
        setSrcInfosTopo(dessin, &projet, 1, lu ? 0 : 1);
        lu = true;
    }

    void objectModified(const AcDbDatabase*, const AcDbObject* objet) override
    {
        if (objet->isUndoing()) // undo brings the points back by itself
            return;
        constexpr int masqueXY = 3; // the altitude of a point is not that of its symbol
        if (const auto* const symbole = AcDbBlockReference::cast(objet))
            projet.notifyPositionPoint(symbole->objectId(), symbole->position(), masqueXY);
        else if (const auto* const point = AcDbPoint::cast(objet))
            projet.notifyPositionPoint(point->objectId(), point->position(), masqueXY);
    }

private:
    AcDbDatabase* dessin;
    projetsTopo projet;
    bool lu = false;
};

suiviDessins::suiviDessins()
{
    acDocManager->addReactor(this);
    documentBecameCurrent(acDocManager->curDocument()); // the module may come after the first drawing
}

suiviDessins::~suiviDessins()
{
    acDocManager->removeReactor(this);
}

void suiviDessins::documentBecameCurrent(AcApDocument* document)
{
    AcDbDatabase* const dessin = document ? document->database() : nullptr;
    if (!dessin)
        return setSrcInfosTopo(nullptr, nullptr, 0, 0);
    auto& suivi = dessins[dessin];
    if (!suivi)
        suivi = std::make_unique<dessinSuivi>(dessin);
    suivi->devenirCourant();
}

void suiviDessins::documentToBeDestroyed(AcApDocument* document)
{
    dessins.erase(document->database());
}
