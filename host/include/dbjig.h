#pragma once

#include <memory>

#include "adscodes.h"
#include "dbmain.h"

/// A drag sequence: an entity follows the cursor until the user settles it.
///
/// A derived class gives `entity` (the one that is shown; it is the jig's), `sampler` (asks for one value through one
/// of the acquire functions, and says whether it changed) and `update` (makes the entity follow). `drag` runs them
/// until a point is picked, a value or a keyword typed, or the user cancels.
class AcEdJig : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdJig);

    /// What an acquire function, and `drag`, ended with.
    enum DragStatus {
        kModeless = RTMODELESS,
        kNoChange = -6, ///< given by a sampler: nothing to update
        kCancel = -4,   ///< Escape
        kOther = -3,    ///< any other text (kAcceptOtherInputString)
        kNull = -1,     ///< Enter alone
        kNormal = 0,
        kKW1, ///< keywords in the order of the list
        kKW2,
        kKW3,
        kKW4,
        kKW5,
        kKW6,
        kKW7,
        kKW8,
        kKW9,
    };

    /// How input is taken; several are added together.
    enum UserInputControls {
        kGovernedByOrthoMode = 0x1,
        kNullResponseAccepted = 0x2,
        kDontEchoCancelForCtrlC = 0x4,
        kDontUpdateLastPoint = 0x8,
        kNoDwgLimitsChecking = 0x10,
        kNoZeroResponseAccepted = 0x20,
        kNoNegativeResponseAccepted = 0x40,
        kAccept3dCoordinates = 0x80,
        kAcceptMouseUpAsPoint = 0x100,
        kAnyBlankTerminatesInput = 0x200,
        kInitialBlankTerminatesInput = 0x400,
        kAcceptOtherInputString = 0x800,
    };

    enum CursorType {
        kNoSpecialCursor = -1,
        kCrosshair = 0,
        kRectCursor,
        kRubberBand,
        kNotRotated,
        kTargetBox,
        kRotatedCrosshair,
        kCrosshairNoRotate,
        kInvisible,
        kEntitySelect,
        kParallelogram,
        kEntitySelectNoPersp,
        kPkfirstOrGrips,
    };

    AcEdJig();
    ~AcEdJig() override;

    /// Runs the sequence. The jig may be dragged again, in another state, with other prompts.
    DragStatus drag();

    virtual DragStatus sampler() { return kCancel; }
    /// @return whether the entity changed.
    virtual Adesk::Boolean update() { return Adesk::kFalse; }
    virtual AcDbEntity* entity() const { return nullptr; }

    /// Adds the entity to the current space, where it is closed: the drawing owns it from then on.
    /// @return null when it could not be added; it is then the jig's still.
    AcDbObjectId append();

    /// As for acedInitGet; empty when there are none.
    const ACHAR* keywordList() const;
    void setKeywordList(const ACHAR* keywords);
    const ACHAR* dispPrompt() const;
    /// Formats as acutPrintf does.
    void setDispPrompt(const ACHAR* format, ...);
    CursorType specialCursorType() const;
    void setSpecialCursorType(CursorType type);
    UserInputControls userInputControls() const;
    void setUserInputControls(UserInputControls controls);

    // To be called by `sampler`, one of them once. The value stays as it was unless kNormal is given.

    /// `text` has room for 132 characters and its zero.
    DragStatus acquireString(ACHAR* text);
    DragStatus acquireAngle(double& angle);
    /// Radians counter-clockwise from the east, of the line from `base`.
    DragStatus acquireAngle(double& angle, const AcGePoint3d& base);
    DragStatus acquireDist(double& distance);
    DragStatus acquireDist(double& distance, const AcGePoint3d& base);
    DragStatus acquirePoint(AcGePoint3d& point);
    /// A line is stretched from `base`.
    DragStatus acquirePoint(AcGePoint3d& point, const AcGePoint3d& base);

private:
    struct State;
    std::unique_ptr<State> m_state;
};
