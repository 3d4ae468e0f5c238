// acedGrDraw, acedGrVecs, acedGrText, acedGrRead, acedRedraw and their like.

#include <cmath>
#include <deque>

#include "ed/input/DisplayHook.h"
#include "ed/input/PickFirst.h"
#include "ed/input/Question.h"
#include "ed/input/Transients.h"
#include "rx/HostSession.h"
#include "rx/ResbufKind.h"

#include "acdocman.h"
#include "aced.h"
#include "dbads.h"

namespace {

constexpr int kMostColor = 255;

AcGePoint3d multiplied(const ads_point point, ads_matrix matrix)
{
    if (!matrix)
        return pointOf(point);
    double to[3];
    for (int row = 0; row < 3; ++row)
        to[row] = matrix[row][0] * point[0] + matrix[row][1] * point[1] + matrix[row][2] * point[2] + matrix[row][3];
    return {to[0], to[1], to[2]};
}

/// Keys of a typed text that wait to be read one by one.
struct TypedKeys {
    std::deque<short> keys;
};

std::deque<short>& waitingKeys()
{
    return HostSession::part<TypedKeys>().keys;
}

} // namespace

int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight)
{
    AcApDocument* const document = curDoc();
    if (!from || !to || !document || color < -1 || color > kMostColor)
        return RTERROR;
    Transients::of(*document).addVector({pointOf(from), pointOf(to), color, highlight != 0});
    return RTNORM;
}

int acedGrVecs(const resbuf* vectors, ads_matrix matrix)
{
    AcApDocument* const document = curDoc();
    if (!vectors || !document)
        return RTERROR;
    std::vector<Transients::Vector> drawn;
    Transients::Vector vector;
    bool hasFrom = false;
    for (; vectors; vectors = vectors->rbnext) {
        const ResbufKind kind = resbufKind(vectors->restype);
        if (kind == ResbufKind::int16) {
            vector.color = std::abs(int{vectors->resval.rint});
            vector.highlighted = vectors->resval.rint < 0;
        } else if (kind != ResbufKind::point) {
            return RTERROR;
        } else if (!hasFrom) {
            vector.from = multiplied(vectors->resval.rpoint, matrix);
            hasFrom = true;
        } else {
            vector.to = multiplied(vectors->resval.rpoint, matrix);
            hasFrom = false;
            drawn.push_back(vector);
        }
    }
    if (hasFrom)
        return RTERROR;
    for (const Transients::Vector& one : drawn)
        Transients::of(*document).addVector(one);
    return RTNORM;
}

int acedGrText(int box, const ACHAR* text, int)
{
    AcApDocument* const document = curDoc();
    if (!document)
        return RTERROR;
    Transients& transients = Transients::of(*document);
    switch (box) {
    case -1:
        transients.setStatusText(text ? text : L"");
        return RTNORM;
    case -2:
        transients.setCoordinatesText(text ? text : L"");
        return RTNORM;
    default:
        return box >= 0 ? RTNORM : RTERROR; // boxes of a screen menu, which this host has not
    }
}

int acedGrRead(int track, int* type, resbuf* result)
{
    constexpr int movementsCount = 1;
    constexpr int key = 2, picked = 3, movedTo = 5;
    constexpr short enter = 13;
    if (!type || !result || !curDoc())
        return RTERROR;
    InputRequest request;
    request.kind = InputRequest::Kind::drag;
    request.takesAnyText = true;
    while (waitingKeys().empty()) {
        const InputAnswer answer = EditorInput::instance().ask(request);
        switch (answer.kind) {
        case InputAnswer::Kind::text:
            for (const wchar_t c : answer.text)
                waitingKeys().push_back(static_cast<short>(c));
            waitingKeys().push_back(enter);
            break;
        case InputAnswer::Kind::point:
        case InputAnswer::Kind::moved: {
            const bool isPick = answer.kind == InputAnswer::Kind::point;
            if (!isPick && (track & movementsCount) == 0)
                break;
            *type = isPick ? picked : movedTo;
            result->restype = RT3DPOINT;
            result->resval.rpoint[0] = answer.point.x;
            result->resval.rpoint[1] = answer.point.y;
            result->resval.rpoint[2] = answer.point.z;
            return RTNORM;
        }
        default:
            return RTCAN;
        }
    }
    *type = key;
    result->restype = RTSHORT;
    result->resval.rint = waitingKeys().front();
    waitingKeys().pop_front();
    return RTNORM;
}

int acedRedraw(const ads_name entity, int mode)
{
    constexpr int draw = 1, erase = 2, highlight = 3, unhighlight = 4;
    AcApDocument* const document = curDoc();
    if (!document)
        return RTERROR;
    if (!entity || ads_name_nil(entity)) {
        Transients::of(*document).redrawn();
        return RTNORM;
    }
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk || mode < draw || mode > unhighlight)
        return RTERROR;
    if (mode == highlight || mode == unhighlight)
        PickFirst::of(*document).setHighlighted(id, mode == highlight);
    else
        static_cast<void>(erase); // what is hidden so would come back with the next drawing anew
    return RTNORM;
}

int acedTextScr()
{
    return RTNORM; // the history of the command line stands beside the drawing: nothing to switch
}

int acedGraphScr()
{
    return RTNORM;
}

void acedUpdateDisplay()
{
    if (const auto& update = DisplayHook::instance().update)
        update();
}
