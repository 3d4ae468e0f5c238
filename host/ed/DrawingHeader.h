#pragma once

#include "ed/SystemVariables.h"

/// The system variables that stand in the HEADER section of a drawing's file.
class DrawingHeader : public DrawingVariables {
public:
    std::optional<VariableValue> value(const AcDbDatabase& database, const DrawingVariable& variable) override;
    /// A layer or text style must be there, and is written as the drawing spells it.
    bool setValue(AcDbDatabase& database, const DrawingVariable& variable, const VariableValue& value) override;
};
