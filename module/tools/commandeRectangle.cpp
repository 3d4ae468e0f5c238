#include "tools/commandeRectangle.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "tools/rectangleOriente.h"

#include "dbjig.h"
#include "dbpl.h"

namespace {

enum class etatRectangle { origine, rotation, cote, diagonale };

struct etape {
    const wchar_t* invite;
    const wchar_t* motsCles;
    etatRectangle troisiemeMot; // the first two are the states origin and rotation
};

constexpr etape etapes[] = {
    {L"\nOrigine:", L"", etatRectangle::origine},
    {L"\nRotation ", L"", etatRectangle::rotation},
    {L"\nOrigine Rotation Diagonale <Point sur le c\u00f4t\u00e9 oppos\u00e9>", L"Origine Rotation Diagonale",
     etatRectangle::diagonale},
    {L"\nOrigine Rotation Cote <Point sur le c\u00f4t\u00e9 oppos\u00e9>", L"Origine Rotation Cote",
     etatRectangle::cote},
};

class rectorienteJig : public AcEdJig {
public:
    rectorienteJig() : m_ligne(std::make_unique<AcDbPolyline>(4u))
    {
        m_ligne->setDatabaseDefaults();
        for (unsigned int i = 0; i < 4; ++i)
            m_ligne->addVertexAt(i, {0.0, 0.0});
        m_ligne->setClosed(Adesk::kTrue);
        setUserInputControls(kAccept3dCoordinates);
    }

    /// @return whether the user settled a rectangle. One whose corners are no numbers could not be saved.
    bool derouler()
    {
        for (;;) {
            const etape& e = etapes[static_cast<int>(m_etat)];
            setDispPrompt(L"%s", e.invite);
            setKeywordList(e.motsCles);
            switch (drag()) {
            case kNormal:
                if (m_etat >= etatRectangle::cote)
                    return std::ranges::all_of(m_rectangle.sommets(),
                                               [](point2 p) { return std::isfinite(p.x + p.y); });
                m_etat = m_etat == etatRectangle::origine ? etatRectangle::rotation : etatRectangle::cote;
                break;
            case kKW1:
                m_etat = etatRectangle::origine;
                break;
            case kKW2:
                m_etat = etatRectangle::rotation;
                break;
            case kKW3:
                m_etat = e.troisiemeMot;
                break;
            default:
                return false;
            }
        }
    }

    void ajouterAuDessin()
    {
        if (!append().isNull())
            static_cast<void>(m_ligne.release()); // the drawing's from now on
    }

    AcDbEntity* entity() const override { return m_ligne.get(); }

    DragStatus sampler() override
    {
        AcGePoint3d p;
        const AcGePoint3d origine(m_rectangle.origine.x, m_rectangle.origine.y, 0.0);
        const DragStatus statut = m_etat == etatRectangle::rotation ? acquirePoint(p, origine) : acquirePoint(p);
        if (statut != kNormal)
            return statut;
        const point2 vu{p.x, p.y};
        const bool immobile = m_etat >= etatRectangle::cote && m_etatVu == m_etat && norme(vu - m_vu) <= 1e-6;
        m_vu = vu;
        m_etatVu = m_etat;
        return immobile ? kNoChange : kNormal;
    }

    Adesk::Boolean update() override
    {
        switch (m_etat) {
        case etatRectangle::origine:
            m_rectangle.origine = m_vu;
            break;
        case etatRectangle::rotation:
            m_rectangle.orienterVers(m_vu);
            break;
        case etatRectangle::cote:
            m_rectangle.elargirVers(m_vu);
            break;
        case etatRectangle::diagonale:
            m_rectangle.etendreVers(m_vu);
            break;
        }
        const auto sommets = m_rectangle.sommets();
        for (unsigned int i = 0; i < 4; ++i)
            m_ligne->setPointAt(i, {sommets[i].x, sommets[i].y});
        return Adesk::kTrue;
    }

private:
    std::unique_ptr<AcDbPolyline> m_ligne;
    rectangleOriente m_rectangle;
    etatRectangle m_etat = etatRectangle::origine;
    point2 m_vu;                           // the last sample,
    std::optional<etatRectangle> m_etatVu; // and the state in which it was taken
};

} // namespace

void commandeRectangle()
{
    rectorienteJig jig;
    if (jig.derouler())
        jig.ajouterAuDessin();
}
