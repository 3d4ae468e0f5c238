#include <algorithm>
#include <numeric>

#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "platform/LetterCase.h"

namespace {

using lisp_argument::items;

/// Positions of the items in their order; equal ones keep theirs. The user's comparison may be inconsistent or change
/// its mind, which the standard library's sorts do not stand.
template <class Less>
std::vector<std::size_t> sortedPositions(std::size_t count, Less less)
{
    std::vector<std::size_t> order(count), merged(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    for (std::size_t run = 1; run < count; run *= 2) {
        for (std::size_t start = 0; start < count; start += 2 * run) {
            const std::size_t middle = std::min(start + run, count), end = std::min(start + 2 * run, count);
            std::size_t left = start, right = middle;
            for (std::size_t at = start; at < end; ++at) {
                const bool takeRight = left == middle || (right < end && less(order[right], order[left]));
                merged[at] = order[takeRight ? right++ : left++];
            }
        }
        order.swap(merged);
    }
    return order;
}

std::vector<std::size_t> sortedByUser(LispContext& context, const std::vector<LispValue>& all,
                                      const LispValue& comparison)
{
    const LispValue function = context.requireFunction(comparison);
    return sortedPositions(all.size(), [&](std::size_t a, std::size_t b) {
        const LispValue both[] = {all[a], all[b]};
        return !context.apply(function, both).isNil();
    });
}

LispValue sort(LispContext& context, LispArguments arguments)
{
    const std::vector<LispValue> all = items(arguments[0]);
    std::vector<LispValue> sorted;
    for (const std::size_t position : sortedByUser(context, all, arguments[1]))
        sorted.push_back(all[position]);
    return listOf(sorted);
}

LispValue sortPositions(LispContext& context, LispArguments arguments)
{
    std::vector<LispValue> positions;
    for (const std::size_t position : sortedByUser(context, items(arguments[0]), arguments[1]))
        positions.emplace_back(static_cast<std::int32_t>(position));
    return listOf(positions);
}

/// In alphabetical order whatever the letter case.
LispValue sortTexts(LispContext&, LispArguments arguments)
{
    const std::vector<LispValue> all = items(arguments[0]);
    for (const LispValue& item : all)
        lisp_argument::text(item);
    std::vector<LispValue> sorted;
    for (const std::size_t position : sortedPositions(all.size(), [&all](std::size_t a, std::size_t b) {
             return platform::compareNoCase(all[a].text(), all[b].text()) < 0;
         }))
        sorted.push_back(all[position]);
    return listOf(sorted);
}

constexpr LispBuiltin kRows[] = {
    {L"ACAD_STRLSORT", 1, 1, sortTexts},
    {L"VL-SORT", 2, 2, sort},
    {L"VL-SORT-I", 2, 2, sortPositions},
};

} // namespace

std::span<const LispBuiltin> sortingBuiltins()
{
    return kRows;
}
