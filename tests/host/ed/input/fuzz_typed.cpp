// Any text as typed points, angles, keywords and expressions, and as filters of selection sets over one entity.
// The first line is what is typed, the second a list of keywords; those below are items of a filter: a group code, a
// blank, a value.

#include <cmath>
#include <cstdlib>
#include <sstream>

#include "ed/input/CommandLine.h"
#include "ed/input/Keywords.h"
#include "ed/input/SnapWords.h"
#include "ed/input/TypedPoint.h"
#include "ed/select/EntitySearch.h"
#include "ge/Angles.h"
#include "platform/CodePage.h"
#include "rx/ResbufChain.h"
#include "rx/ResbufKind.h"
#include "rx/TypedAngle.h"
#include "rx/TypedNumber.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void readTyped(const std::wstring& typed, const std::wstring& list)
{
    for (int unit = 0; unit <= 4; ++unit)
        if (const auto angle = typedAngle(typed, unit)) {
            require(std::isfinite(*angle));
            require(inOneTurn(*angle) >= 0.0 && inOneTurn(*angle) < 6.2832);
        }
    if (const auto number = typedNumber(typed))
        require(typedNumber(fullNumberText(*number)) == *number);
    const PointFrame frame{AcGePoint3d(1, 2, 3), 4.0, {}, AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)};
    static_cast<void>(typedPoint(typed, frame));
    static_cast<void>(snapModesOf(typed));
    static_cast<void>(isOpenExpression(typed));
    const auto keywords = keywordsOf(list);
    for (const InputKeyword& keyword : keywords.value_or(std::vector<InputKeyword>()))
        static_cast<void>(keywordAnswer(keyword));
    if (keywords)
        static_cast<void>(matchingKeyword(*keywords, typed));
}

/// One item; null for a code without a value.
resbuf* itemOf(int code, const std::string& text)
{
    const ResbufKind kind = resbufKind(code);
    if (kind == ResbufKind::unknown || kind == ResbufKind::bytes || kind == ResbufKind::name)
        return nullptr;
    resbuf* const item = acutNewRb(code);
    const double number = std::strtod(text.c_str(), nullptr);
    const bool isSmall = std::fabs(number) < 30000.0;
    if (kind == ResbufKind::text)
        acutNewString(platform::wideFromUtf8(text).c_str(), item->resval.rstring);
    else if (kind == ResbufKind::real)
        item->resval.rreal = number;
    else if (kind == ResbufKind::point)
        item->resval.rpoint[0] = item->resval.rpoint[1] = number;
    else if (kind == ResbufKind::int16)
        item->resval.rint = static_cast<short>(isSmall ? number : 0.0);
    else if (kind == ResbufKind::int32)
        item->resval.rlong = static_cast<Adesk::Int32>(isSmall ? number : 0.0);
    return item;
}

ResbufChain filterOf(std::istream& lines)
{
    ResbufChain chain;
    resbuf* last = nullptr;
    for (std::string line; std::getline(lines, line);) {
        const int code = std::atoi(line.substr(0, 6).c_str());
        const std::size_t blank = line.find(' ');
        resbuf* const item = itemOf(code, blank == std::string::npos ? "" : line.substr(blank + 1));
        if (!item)
            continue;
        if (last)
            last->rbnext = item;
        else
            chain.reset(item);
        last = item;
    }
    return chain;
}

AcDbDatabase& drawingOfOneText()
{
    static AcDbDatabase database;
    static const bool filled = [] {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
        auto* const text = new AcDbText(AcGePoint3d(1, 2, 3), L"Borne 12", AcDbObjectId::kNull, 2.0, 0.5);
        space->appendAcDbEntity(text);
        text->close();
        return true;
    }();
    static_cast<void>(filled);
    return database;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    std::string typed, list;
    std::getline(lines, typed);
    std::getline(lines, list);
    readTyped(platform::wideFromUtf8(typed), platform::wideFromUtf8(list));
    const ResbufChain chain = filterOf(lines);
    AcDbDatabase& database = drawingOfOneText();
    if (const auto filter = EntityFilter::of(chain.get()))
        require(EntitySearch(database, *filter).everywhere().size() <= 1);
    return 0;
}
