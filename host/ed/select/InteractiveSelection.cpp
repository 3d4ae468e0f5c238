#include "ed/select/InteractiveSelection.h"

#include <algorithm>

#include "ap/DocumentData.h"
#include "ed/input/InputTexts.h"
#include "ed/input/PickFirst.h"
#include "ed/input/TypedPoint.h"
#include "ed/select/EntitySearch.h"
#include "rx/Console.h"

#include "acdocman.h"

namespace {

constexpr const wchar_t* kOptions =
    L"Fenêtre Dernier Capture BOîte TOUt Trajet FPolygone CPolygone Ajouter Supprimer Multiple Précédent aNnuler "
    L"AUto SIngulier _ Window Last Crossing BOX ALL Fence WPolygon CPolygon Add Remove Multiple Previous Undo AUto "
    L"SIngle";

const std::vector<InputKeyword>& options()
{
    static const std::vector<InputKeyword> all = *keywordsOf(kOptions);
    return all;
}

/// The common name of an option, however it is typed; the common words are known without their "_" too, where no
/// word of the user's language has the letters.
std::wstring optionOf(const std::wstring& typed)
{
    const InputKeyword* found = matchingKeyword(options(), typed);
    if (!found)
        found = matchingKeyword(options(), L"_" + typed);
    return found ? keywordAnswer(*found) : L"";
}

/// Asks for one more point, from another one or from nowhere.
int askPoint(const wchar_t* prompt, const AcGePoint3d* from, InputRequest::Kind kind, AcGePoint3d& point,
             bool takesNone = false)
{
    EditorInput::instance().setInitGet({takesNone ? 0 : RSG_NONULL, {}});
    Question question(kind, prompt);
    if (from)
        question.request.base = *from;
    const int status =
        question.ask([&](const InputAnswer& answer) { return readPoint(question.request, answer, point); });
    if (status == RTNORM)
        setLastPoint(point);
    return status;
}

} // namespace

std::vector<AcDbObjectId>& previousSelection()
{
    static DocumentData<std::vector<AcDbObjectId>> ofDocuments;
    return ofDocuments.of(*curDoc());
}

InteractiveSelection::InteractiveSelection(AcDbDatabase& database, const SelectionCall& call, Prompts prompts,
                                           Taken taken) :
    m_database(database),
    m_call(call),
    m_prompts(std::move(prompts)),
    m_taken(std::move(taken)),
    m_question(InputRequest::Kind::selection, L"")
{
    m_question.request.takesNone = true;
}

InteractiveSelection::~InteractiveSelection()
{
    if (AcApDocument* const document = curDoc())
        PickFirst::of(*document).setBeingMade({});
}

int InteractiveSelection::ask()
{
    for (;;) {
        m_question.request.prompt = m_removing ? m_prompts.removing : m_prompts.adding;
        InputAnswer given;
        const int asked = m_question.ask([&](const InputAnswer& answer) {
            given = answer;
            return isUnderstood(answer) ? nullptr : input_texts::selectionWanted;
        });
        if (asked != RTNORM)
            return asked == RTNONE ? RTNORM : asked;
        const std::size_t changes = m_changes.size();
        m_picking = given.kind != InputAnswer::Kind::text;
        m_withShift = given.withShift;
        if (const int status = handle(given); status != RTNORM)
            return status;
        PickFirst::of(*curDoc()).setBeingMade(m_selection.objects());
        if (m_call.single && (m_picking || m_changes.size() != changes))
            return RTNORM;
    }
}

bool InteractiveSelection::isUnderstood(const InputAnswer& answer) const
{
    if (answer.kind != InputAnswer::Kind::text)
        return true;
    return !optionOf(answer.text).empty() || typedPoint(answer.text, PointFrame::ofDrawing());
}

int InteractiveSelection::handle(const InputAnswer& answer)
{
    if (answer.kind == InputAnswer::Kind::objects) {
        take(m_taken(answer.objects));
        return RTNORM;
    }
    if (answer.kind == InputAnswer::Kind::point)
        return pickAt(answer.point);
    if (const auto point = typedPoint(answer.text, PointFrame::ofDrawing()))
        return pickAt(*point);
    return handleOption(optionOf(answer.text));
}

int InteractiveSelection::handleOption(const std::wstring& name)
{
    if (name == L"Window" || name == L"Crossing" || name == L"BOX")
        return askBox(name);
    if (name == L"WPolygon" || name == L"CPolygon" || name == L"Fence")
        return askPolygon(name);
    if (name == L"Add" || name == L"Remove")
        m_removing = name == L"Remove";
    else if (name == L"Undo")
        takeBack();
    else if (name == L"SIngle")
        m_call.single = true;
    else if (name == L"Previous")
        take(m_taken(previousSelection()));
    else if (name == L"Last" || name == L"ALL") {
        const EntityFilter everything = *EntityFilter::of(nullptr);
        EntitySearch search(m_database, everything);
        const AcDbObjectId space = m_database.currentSpaceId();
        take(m_taken(name == L"ALL" ? search.inBlock(space, EntitySearch::Layers::editable)
                                    : std::vector{search.lastVisible(space)}));
    }
    return RTNORM;
}

/// What lies there; when nothing does, the point is the first corner of a box.
int InteractiveSelection::pickAt(const AcGePoint3d& point)
{
    setLastPoint(point);
    std::vector<AcDbObjectId> under = m_taken(entitiesUnder(m_database, point, true));
    if (under.empty())
        return askOppositeCorner(point, std::nullopt);
    if (!m_call.everything)
        under.resize(1);
    take(under);
    return RTNORM;
}

int InteractiveSelection::askBox(const std::wstring& option)
{
    AcGePoint3d corner;
    const int status = askPoint(input_texts::firstCorner, nullptr, InputRequest::Kind::point, corner);
    if (status != RTNORM)
        return status;
    if (option == L"BOX")
        return askOppositeCorner(corner, std::nullopt);
    return askOppositeCorner(corner, option == L"Window" ? PickExtent::inside : PickExtent::crossing);
}

/// From left to right a box takes what lies inside it, from right to left what it crosses as well.
int InteractiveSelection::askOppositeCorner(const AcGePoint3d& corner, std::optional<PickExtent> extent)
{
    AcGePoint3d other;
    const int status = askPoint(input_texts::oppositeCorner, &corner, InputRequest::Kind::corner, other);
    if (status != RTNORM)
        return status;
    const PickExtent byDirection = other.x < corner.x ? PickExtent::crossing : PickExtent::inside;
    take(m_taken(entitiesInBox(m_database, corner, other, extent.value_or(byDirection))));
    return RTNORM;
}

int InteractiveSelection::askPolygon(const std::wstring& option)
{
    std::vector<AcGePoint3d> points;
    for (;;) {
        AcGePoint3d point;
        const bool isFirst = points.empty();
        const int status = askPoint(isFirst ? input_texts::firstPoint : input_texts::nextPoint,
                                    isFirst ? nullptr : &points.back(), InputRequest::Kind::point, point, true);
        if (status == RTNONE)
            break;
        if (status != RTNORM)
            return status;
        points.push_back(point);
    }
    if (option == L"Fence")
        take(m_taken(points.size() < 2 ? std::vector<AcDbObjectId>() : entitiesOnFence(m_database, points)));
    else
        take(m_taken(
            entitiesInPolygon(m_database, points, option == L"WPolygon" ? PickExtent::inside : PickExtent::crossing)));
    return RTNORM;
}

PickEffect InteractiveSelection::effectOf(const std::vector<AcDbObjectId>& entities) const
{
    if (m_removing || !m_picking)
        return m_removing ? PickEffect::removes : PickEffect::adds;
    const auto isIn = [this](AcDbObjectId entity) { return m_selection.has(entity); };
    return pickEffect(m_withShift, std::ranges::all_of(entities, isIn));
}

void InteractiveSelection::take(const std::vector<AcDbObjectId>& entities)
{
    const PickEffect effect = effectOf(entities);
    const bool removes = effect == PickEffect::removes;
    if (effect == PickEffect::replaces && !entities.empty())
        change(m_selection.objects(), true);
    const std::size_t changed = change(entities, removes);
    const std::size_t known = entities.size() - changed;
    std::wstring told = L"\n" + std::to_wstring(entities.size()) + L" trouvé(s)";
    if (known > 0 && !removes)
        told += L" (" + std::to_wstring(known) + L" en double)";
    else if (removes)
        told += L", " + std::to_wstring(changed) + L" supprimé(s)";
    if (m_selection.size() != entities.size())
        told += L", total " + std::to_wstring(m_selection.size());
    Console::instance().print(told);
}

std::size_t InteractiveSelection::change(const std::vector<AcDbObjectId>& entities, bool removes)
{
    Change change{{}, removes};
    if (!removes)
        m_selection.reserve(entities.size());
    for (const AcDbObjectId entity : entities)
        if (removes ? m_selection.remove(entity) : m_selection.add(entity))
            change.entities.push_back(entity);
    const std::size_t count = change.entities.size();
    if (count > 0)
        m_changes.push_back(std::move(change));
    return count;
}

void InteractiveSelection::takeBack()
{
    if (m_changes.empty())
        return;
    const Change change = std::move(m_changes.back());
    m_changes.pop_back();
    for (const AcDbObjectId entity : change.entities)
        change.removed ? m_selection.add(entity) : m_selection.remove(entity);
}
