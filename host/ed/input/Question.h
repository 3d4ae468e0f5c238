#pragma once

#include <functional>

#include "ed/input/EditorInput.h"

#include "aced.h"

/// One question of the C-style functions: takes what acedInitGet has set, deals with Escape, Enter alone, keywords and
/// other texts alike for all of them, and asks again what makes no sense.
class Question {
public:
    Question(InputRequest::Kind kind, const ACHAR* prompt);

    InputRequest request;
    const InitGet& init() const { return m_init; }
    void stretchFrom(const ads_point base); ///< null: from nowhere

    /// Reads an answer: the reason why it does not do, in French, or null when it does.
    using Reader = std::function<const wchar_t*(const InputAnswer&)>;
    /// Asks until the reader takes an answer. @return RTNORM, RTNONE, RTCAN, RTKWORD.
    int ask(const Reader& reader);

private:
    int settled(const InputAnswer& answer) const;
    bool refuse(const wchar_t* reason);

    InitGet m_init;
};

// ---- what several of the functions read

/// The point of an answer, typed or picked; null in `reason` when it does.
const wchar_t* readPoint(const InputRequest& request, const InputAnswer& answer, AcGePoint3d& point);
/// Checks RSG_NOZERO and RSG_NONEG.
const wchar_t* refusedNumber(double value, const InitGet& init);
/// Remembers it as LASTPOINT.
void setLastPoint(const AcGePoint3d& point);
/// Asks for the second of two points, stretched from the first.
int askSecondPoint(const Question& first, const AcGePoint3d& base, AcGePoint3d& point);
AcGePoint3d pointOf(const ads_point point);
