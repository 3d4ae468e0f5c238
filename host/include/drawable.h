#pragma once

#include "rxboiler.h"

/// What can be drawn: objects of a drawing, and the entities of a jig.
class AcGiDrawable : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcGiDrawable);

protected:
    AcGiDrawable() = default;
    AcGiDrawable(const AcGiDrawable&) = default;
};
