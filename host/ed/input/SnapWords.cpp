#include "ed/input/SnapWords.h"

#include "ed/select/AreaPicking.h"
#include "gi/ObjectSnap.h"
#include "platform/LetterCase.h"

#include "acdocman.h"

namespace {

struct SnapWord {
    std::wstring_view local;  ///< its first three letters suffice
    std::wstring_view global; ///< behind "_"
    int mode;
};

constexpr SnapWord kWords[] = {
    {L"EXTREMITE", L"ENDPOINT", 1},
    {L"FIN", L"ENDPOINT", 1},
    {L"MILIEU", L"MIDPOINT", 2},
    {L"CENTRE", L"CENTER", 4},
    {L"NODAL", L"NODE", 8},
    {L"QUADRANT", L"QUADRANT", 16},
    {L"INTERSECTION", L"INTERSECTION", 32},
    {L"INSERTION", L"INSERTION", 64},
    {L"PERPENDICULAIRE", L"PERPENDICULAR", 128},
    {L"PROCHE", L"NEAREST", 512},
    {L"AUCUN", L"NONE", kNoSnap},
};

int modeOf(std::wstring_view word)
{
    constexpr std::size_t least = 3;
    const bool isGlobal = word.starts_with(L'_');
    if (isGlobal)
        word.remove_prefix(1);
    if (word.size() < least)
        return 0;
    for (const SnapWord& row : kWords) {
        const std::wstring_view whole = isGlobal ? row.global : row.local;
        if (whole.size() >= word.size() && platform::equalNoCase(whole.substr(0, word.size()), word))
            return row.mode;
    }
    return 0;
}

} // namespace

int snapModesOf(std::wstring_view words)
{
    int modes = 0;
    for (std::size_t start = 0, end = 0; end != std::wstring_view::npos; start = end + 1) {
        end = words.find(L',', start);
        const int mode = modeOf(words.substr(start, end == std::wstring_view::npos ? end : end - start));
        if (mode == 0)
            return 0;
        modes |= mode;
    }
    return modes;
}

bool takesSnapWords(const InputRequest& request)
{
    using Kind = InputRequest::Kind;
    return request.kind == Kind::point || request.kind == Kind::corner || request.kind == Kind::distance ||
           request.kind == Kind::angle || request.kind == Kind::drag;
}

std::optional<AcGePoint3d> snapPoint(const AcGePoint3d& point, int modes, const AcGePoint3d* from)
{
    AcApDocument* const document = curDoc();
    if (!document || (modes & kNoSnap) != 0)
        return std::nullopt;
    const auto snap = snapAt(Scene::of(*document->database()), {point.x, point.y}, pickAperture(),
                             static_cast<unsigned>(modes), from);
    return snap ? std::optional(snap->point) : std::nullopt;
}

AcGePoint3d snapped(const AcGePoint3d& typed, const InputRequest& request)
{
    return snapPoint(typed, request.snapModes, request.base ? &*request.base : nullptr).value_or(typed);
}
