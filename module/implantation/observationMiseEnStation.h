#pragma once

#include <memory>

#include "implantation/donneesStation.h"
#include "implantation/identifiants.h"
#include "services/Uncopyable.h"

#include "dbid.h"
#include "dbidar.h"

/// A named point of the job with its marker in the drawing.
class unPoint : Uncopyable {
public:
    explicit unPoint(const lieuNomme& leLieu = {}) : lieu(leLieu) {}

    lieuNomme lieu;
    AcDbObjectId marqueur;
};

/// A point that can serve as a station or as a reference.
class uneStationReference : public unPoint {
public:
    using unPoint::unPoint;
};

/// A station setup of the job. What it computes and says stands in donneesStation.h; this ties it to the drawing.
/// The order of the virtual operations is part of the interface between modules.
class observationMiseEnStation : public uneStationReference {
public:
    /// Angle to read on the instrument for a target.
    virtual double angleTo(const lieuNomme& cible) const = 0;
    virtual double bearingTo(const lieuNomme& cible) const;
    /// Forgets markers and entities; they stay in the drawing.
    virtual void clearGraphics();
    /// Appends to `ids` the station's marker, the reference's, then the entities; with `oublier`, then clears.
    virtual void collectGraphics(AcDbObjectIdArray& ids, bool oublier);
    /// Draws anew; `masque` as masqueImplantation.
    virtual void draw(unsigned masque);
    /// Erases what is drawn.
    virtual void releaseGraphics();
    virtual int typeCode() const = 0;
    virtual std::string describeHtml() const;
    virtual std::wstring describeText() const;
    virtual donneesStation donnees() const = 0;
    virtual ~observationMiseEnStation() = default;

    identifiantImplantation identifiant = nouvelIdentifiant();
    int etiquette = 0; ///< see donneesStation

protected:
    explicit observationMiseEnStation(const lieuNomme& station) : uneStationReference(station) {}
    /// Takes the markers out of what was drawn: crosses, in the order of traceStation.
    virtual void garderMarqueurs(std::vector<AcDbObjectId>& dessines);

    AcDbObjectIdArray m_entites{0, 8};
};

/// Oriented by a fixed value: 0 is north.
class observationMiseEnStationOrientee final : public observationMiseEnStation {
public:
    observationMiseEnStationOrientee(const lieuNomme& station, double v0) : observationMiseEnStation(station), V0(v0) {}

    double angleTo(const lieuNomme& cible) const override;
    int typeCode() const override { return 10; }
    donneesStation donnees() const override;

    double V0;
};

/// Its zero was set on a reference.
class observationMiseEnStationVisee final : public observationMiseEnStation {
public:
    observationMiseEnStationVisee(const lieuNomme& station, const lieuNomme& laReference) :
        observationMiseEnStation(station),
        reference(laReference)
    {
    }

    double angleTo(const lieuNomme& cible) const override;
    void clearGraphics() override;
    void collectGraphics(AcDbObjectIdArray& ids, bool oublier) override;
    int typeCode() const override { return 20; }
    donneesStation donnees() const override;

    unPoint reference;

protected:
    void garderMarqueurs(std::vector<AcDbObjectId>& dessines) override;
};

/// How a setup is oriented.
enum genreMiseEnStation { miseEnStationNord = 1, miseEnStationPoint, miseEnStationPosition, miseEnStationOrientation };

/// @param reference for the kinds from 2 on: a named point, a position (its name is dropped), what the zero points at.
///        Its altitude is not kept.
/// @return null for another kind
std::unique_ptr<observationMiseEnStation> creerMiseEnStation(const lieuNomme& station, const lieuNomme& reference,
                                                             int genre);
