// AcEdJig: an entity that follows the cursor.

#include <cmath>
#include <cstdarg>

#include "ed/input/InputTexts.h"
#include "ed/input/Question.h"
#include "ed/input/Transients.h"
#include "ed/input/TypedPoint.h"
#include "ed/SystemVariables.h"
#include "ge/Angles.h"
#include "platform/WideFormat.h"
#include "rx/TypedAngle.h"
#include "rx/TypedNumber.h"

#include "acdocman.h"
#include "dbjig.h"
#include "dbsymtb.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdJig, AcRxObject)

struct AcEdJig::State {
    std::wstring keywordList, prompt;
    CursorType cursor = kNoSpecialCursor;
    UserInputControls controls = UserInputControls(0);
    bool asked = false;   ///< by the sampler that runs
    bool settled = false; ///< by what was answered: no movement

    bool accepts(UserInputControls control) const { return (controls & control) != 0; }

    /// Reads a value out of an answer: why it does not do, or null.
    using Reader = std::function<const wchar_t*(const InputRequest& request, const InputAnswer& answer)>;
    DragStatus ask(InputRequest::Kind kind, const AcGePoint3d* base, const Reader& reader);

    /// A number that a typed text, or a point seen from the base, tells.
    DragStatus askNumber(double& value, const AcGePoint3d* base, std::optional<double> (*typed)(const std::wstring&),
                         double (*measured)(const AcGePoint3d&, const AcGePoint3d&), const wchar_t* wanted);
};

namespace {

AcGePoint3d lastPoint()
{
    const auto value = SystemVariables::instance().value(L"LASTPOINT");
    const AcGePoint3d* const point = value ? std::get_if<AcGePoint3d>(&*value) : nullptr;
    return point ? *point : AcGePoint3d();
}

std::optional<double> typedDistance(const std::wstring& text)
{
    return typedNumber(text);
}
std::optional<double> typedOrientation(const std::wstring& text)
{
    return AngleUnits::ofDrawing().fromEast(text);
}
double lengthBetween(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return from.distanceTo(to);
}
double angleBetween(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return inOneTurn(std::atan2(to.y - from.y, to.x - from.x));
}

/// The dragged entity is shown as long as this lives.
class Dragged {
public:
    explicit Dragged(AcApDocument& document) : m_transients(Transients::of(document)) {}
    ~Dragged() { m_transients.setDragged(nullptr); }
    Dragged(const Dragged&) = delete;
    Dragged& operator=(const Dragged&) = delete;
    void show(const AcDbEntity* entity) { m_transients.setDragged(entity); }

private:
    Transients& m_transients;
};

} // namespace

AcEdJig::DragStatus AcEdJig::State::ask(InputRequest::Kind kind, const AcGePoint3d* base, const Reader& reader)
{
    EditorInput& input = EditorInput::instance();
    int bits = accepts(kNullResponseAccepted) ? 0 : RSG_NONULL;
    bits |= accepts(kNoZeroResponseAccepted) ? RSG_NOZERO : 0;
    bits |= accepts(kNoNegativeResponseAccepted) ? RSG_NONEG : 0;
    bits |= accepts(kAcceptOtherInputString) ? RSG_OTHER : 0;
    auto keywords = keywordsOf(keywordList).value_or(std::vector<InputKeyword>());
    input.setInitGet({bits, keywords});
    Question question(kind, prompt.c_str());
    if (base)
        question.request.base = *base;
    asked = true;
    settled = true;
    const int status = question.ask([&](const InputAnswer& answer) {
        settled = answer.kind != InputAnswer::Kind::moved;
        return reader(question.request, answer);
    });
    switch (status) {
    case RTNORM:
        return kNormal;
    case RTNONE:
        return kNull;
    case RTKWORD:
        break;
    default:
        return kCancel;
    }
    for (std::size_t i = 0; i < keywords.size() && i < 9; ++i)
        if (keywordAnswer(keywords[i]) == input.lastKeyword())
            return static_cast<DragStatus>(kKW1 + static_cast<int>(i));
    return kOther;
}

AcEdJig::DragStatus AcEdJig::State::askNumber(double& value, const AcGePoint3d* base,
                                              std::optional<double> (*typed)(const std::wstring&),
                                              double (*measured)(const AcGePoint3d&, const AcGePoint3d&),
                                              const wchar_t* wanted)
{
    const AcGePoint3d from = base ? *base : lastPoint();
    return ask(InputRequest::Kind::drag, &from,
               [&](const InputRequest& request, const InputAnswer& answer) -> const wchar_t* {
                   std::optional<double> number;
                   if (answer.kind == InputAnswer::Kind::text)
                       number = typed(answer.text);
                   AcGePoint3d point = answer.point;
                   if (!number && answer.kind != InputAnswer::Kind::moved && readPoint(request, answer, point))
                       return wanted;
                   if (!number)
                       number = measured(from, point);
                   InitGet signs;
                   signs.bits = (accepts(kNoZeroResponseAccepted) ? RSG_NOZERO : 0) |
                                (accepts(kNoNegativeResponseAccepted) ? RSG_NONEG : 0);
                   const wchar_t* const refused = settled ? refusedNumber(*number, signs) : nullptr;
                   if (!refused)
                       value = *number;
                   return refused;
               });
}

AcEdJig::AcEdJig() : m_state(std::make_unique<State>()) {}
AcEdJig::~AcEdJig() = default;

AcEdJig::DragStatus AcEdJig::drag()
{
    AcApDocument* const document = curDoc();
    if (!document)
        return kCancel;
    Dragged dragged(*document);
    for (;;) {
        m_state->asked = m_state->settled = false;
        const DragStatus status = sampler();
        if (status != kNormal && status != kNoChange)
            return status;
        if (status == kNormal && update())
            dragged.show(entity());
        // A sampler that asks for nothing would go on for ever.
        if (m_state->settled || !m_state->asked)
            return kNormal;
    }
}

AcDbObjectId AcEdJig::append()
{
    AcApDocument* const document = curDoc();
    AcDbEntity* const dragged = entity();
    if (!document || !dragged)
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> space(document->database()->currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (space.openStatus() != Acad::eOk || space->appendAcDbEntity(id, dragged) != Acad::eOk)
        return {};
    dragged->close();
    return id;
}

const ACHAR* AcEdJig::keywordList() const
{
    return m_state->keywordList.c_str();
}

void AcEdJig::setKeywordList(const ACHAR* keywords)
{
    m_state->keywordList = keywords ? keywords : L"";
}

const ACHAR* AcEdJig::dispPrompt() const
{
    return m_state->prompt.c_str();
}

void AcEdJig::setDispPrompt(const ACHAR* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    m_state->prompt = format ? platform::formatWide(format, arguments) : L"";
    va_end(arguments);
}

AcEdJig::CursorType AcEdJig::specialCursorType() const
{
    return m_state->cursor;
}

void AcEdJig::setSpecialCursorType(CursorType type)
{
    m_state->cursor = type;
}

AcEdJig::UserInputControls AcEdJig::userInputControls() const
{
    return m_state->controls;
}

void AcEdJig::setUserInputControls(UserInputControls controls)
{
    m_state->controls = controls;
}

AcEdJig::DragStatus AcEdJig::acquireString(ACHAR* text)
{
    constexpr std::size_t most = 132;
    return m_state->ask(InputRequest::Kind::string, nullptr,
                        [text, most](const InputRequest&, const InputAnswer& answer) -> const wchar_t* {
                            if (answer.kind != InputAnswer::Kind::text)
                                return input_texts::answerWanted;
                            const std::size_t length = std::min(answer.text.size(), most);
                            answer.text.copy(text, length);
                            text[length] = L'\0';
                            return nullptr;
                        });
}

AcEdJig::DragStatus AcEdJig::acquireAngle(double& angle)
{
    return m_state->askNumber(angle, nullptr, typedOrientation, angleBetween, input_texts::angleWanted);
}

AcEdJig::DragStatus AcEdJig::acquireAngle(double& angle, const AcGePoint3d& base)
{
    return m_state->askNumber(angle, &base, typedOrientation, angleBetween, input_texts::angleWanted);
}

AcEdJig::DragStatus AcEdJig::acquireDist(double& distance)
{
    return m_state->askNumber(distance, nullptr, typedDistance, lengthBetween, input_texts::lengthWanted);
}

AcEdJig::DragStatus AcEdJig::acquireDist(double& distance, const AcGePoint3d& base)
{
    return m_state->askNumber(distance, &base, typedDistance, lengthBetween, input_texts::lengthWanted);
}

namespace {

const wchar_t* readDragged(const InputRequest& request, const InputAnswer& answer, bool keepsLast, AcGePoint3d& point)
{
    if (answer.kind == InputAnswer::Kind::moved) {
        point = answer.point;
        return nullptr;
    }
    const wchar_t* const refused = readPoint(request, answer, point);
    if (!refused && !keepsLast)
        setLastPoint(point);
    return refused;
}

} // namespace

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& point)
{
    const bool keepsLast = m_state->accepts(kDontUpdateLastPoint);
    return m_state->ask(InputRequest::Kind::drag, nullptr, [&](const InputRequest& request, const InputAnswer& answer) {
        return readDragged(request, answer, keepsLast, point);
    });
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& point, const AcGePoint3d& base)
{
    const bool keepsLast = m_state->accepts(kDontUpdateLastPoint);
    return m_state->ask(InputRequest::Kind::drag, &base, [&](const InputRequest& request, const InputAnswer& answer) {
        return readDragged(request, answer, keepsLast, point);
    });
}
