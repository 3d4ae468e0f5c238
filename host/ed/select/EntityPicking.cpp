// acedEntSel, acedNEntSel and acedNEntSelP.

#include "db/Record.h"
#include "ed/input/InputTexts.h"
#include "ed/input/Question.h"
#include "ed/input/TypedPoint.h"
#include "ed/select/AreaPicking.h"
#include "ed/select/EntitySearch.h"
#include "ed/SystemVariables.h"
#include "rx/ResbufChain.h"

#include "acdocman.h"
#include "aced.h"
#include "dbents.h"

namespace {

// Values of ERRNO.
constexpr short kNothingThere = 7;
constexpr short kEnterAlone = 52;

void setErrno(short value)
{
    SystemVariables::instance().set(L"ERRNO", value);
}

void give(const AcGePoint3d& point, ads_point result)
{
    result[0] = point.x;
    result[1] = point.y;
    result[2] = point.z;
}

void give(AcDbObjectId id, ads_name name)
{
    name[0] = id.asOldId();
    name[1] = 0;
}

/// "Dernier" stands for the entity drawn last.
bool meansLast(const std::wstring& text)
{
    static const auto words = *keywordsOf(L"Dernier _ Last");
    return matchingKeyword(words, text) != nullptr;
}

AcDbObjectId lastEntity(AcDbDatabase& database)
{
    const EntityFilter everything = *EntityFilter::of(nullptr);
    return EntitySearch(database, everything).lastVisible(database.currentSpaceId());
}

PickHit hitOf(AcDbObjectId entity)
{
    return {entity, {entity}, AcGeMatrix3d::kIdentity};
}

/// Asks for one entity: what was hit at a place, and the place.
int askHit(const ACHAR* prompt, std::optional<PickHit>& hit, AcGePoint3d& point)
{
    AcDbDatabase& database = *curDoc()->database();
    Question question(InputRequest::Kind::entity, prompt ? prompt : input_texts::pickObject);
    const int status = question.ask([&](const InputAnswer& answer) -> const wchar_t* {
        point = answer.point;
        if (answer.kind == InputAnswer::Kind::objects) {
            if (!answer.objects.empty() && answer.objects.front().isValid() && !answer.objects.front().isErased())
                hit = hitOf(answer.objects.front());
            return nullptr;
        }
        if (answer.kind == InputAnswer::Kind::text) {
            if (meansLast(answer.text)) {
                if (const AcDbObjectId last = lastEntity(database); !last.isNull())
                    hit = hitOf(last);
                return nullptr;
            }
            const auto typed = typedPoint(answer.text, PointFrame::ofDrawing());
            if (!typed)
                return input_texts::pointWanted;
            point = *typed;
        }
        if (auto hits = hitsUnder(database, point); !hits.empty())
            hit = std::move(hits.front());
        return nullptr;
    });
    if (status == RTNONE) {
        setErrno(kEnterAlone);
        return RTERROR;
    }
    if (status != RTNORM)
        return status;
    setLastPoint(point);
    if (!hit)
        setErrno(kNothingThere);
    return hit ? RTNORM : RTERROR;
}

/// An attribute stands in the world's coordinates, though a reference owns it.
bool standsInWorld(AcDbObjectId entity)
{
    return isOfClass(entity, AcDbAttribute::desc());
}

/// What nested picking gives: the innermost entity, and the references around it.
struct Nested {
    AcDbObjectId entity;
    AcGeMatrix3d toWorld;
    ResbufChain containers;

    explicit Nested(const PickHit& hit) :
        entity(hit.path.empty() ? hit.entity : hit.path.front()),
        toWorld(standsInWorld(entity) ? AcGeMatrix3d::kIdentity : hit.toWorld)
    {
        ResbufBuilder chain;
        for (std::size_t i = 1; i < hit.path.size() && !standsInWorld(entity); ++i) {
            ads_name name;
            give(hit.path[i], name);
            chain.addName(RTENAME, name);
        }
        containers = chain.take();
    }
};

int askNested(const ACHAR* prompt, ads_point point, bool usePoint, std::optional<Nested>& nested)
{
    std::optional<PickHit> hit;
    AcGePoint3d place;
    if (usePoint) {
        EditorInput::instance().takeInitGet();
        place = pointOf(point);
        if (auto hits = hitsUnder(*curDoc()->database(), place); !hits.empty())
            hit = std::move(hits.front());
        else
            setErrno(kNothingThere);
    } else if (const int status = askHit(prompt, hit, place); status != RTNORM) {
        return status;
    }
    if (!hit)
        return RTERROR;
    nested.emplace(*hit);
    give(place, point);
    return RTNORM;
}

} // namespace

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point)
{
    if (!entity || !point || !curDoc()) {
        EditorInput::instance().takeInitGet();
        return RTERROR;
    }
    std::optional<PickHit> hit;
    AcGePoint3d place;
    if (const int status = askHit(prompt, hit, place); status != RTNORM)
        return status;
    give(hit->entity, entity);
    give(place, point);
    return RTNORM;
}

int acedNEntSel(const ACHAR* prompt, ads_name entity, ads_point point, ads_point toWorld[4], resbuf** containers)
{
    std::optional<Nested> nested;
    if (!entity || !point || !curDoc())
        return RTERROR;
    if (const int status = askNested(prompt, point, false, nested); status != RTNORM)
        return status;
    give(nested->entity, entity);
    for (int row = 0; toWorld && row < 4; ++row)
        for (int i = 0; i < 3; ++i)
            toWorld[row][i] = nested->toWorld(static_cast<unsigned>(i), static_cast<unsigned>(row));
    if (containers)
        *containers = nested->containers.release();
    return RTNORM;
}

int acedNEntSelP(const ACHAR* prompt, ads_name entity, ads_point point, int usePoint, ads_matrix toWorld,
                 resbuf** containers)
{
    std::optional<Nested> nested;
    if (!entity || !point || !curDoc())
        return RTERROR;
    if (const int status = askNested(prompt, point, usePoint != 0, nested); status != RTNORM)
        return status;
    give(nested->entity, entity);
    for (int row = 0; toWorld && row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            toWorld[row][column] = nested->toWorld(static_cast<unsigned>(row), static_cast<unsigned>(column));
    if (containers)
        *containers = nested->containers.release();
    return RTNORM;
}
