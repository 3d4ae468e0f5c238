#include "lisp/eval/LispValue.h"

#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"

namespace {

/// Bytes that living values take, roughly. A program that fills the memory is stopped before the machine suffers;
/// memory is the process's, hence one count for all contexts.
class ValueMemory {
public:
    static void take(std::size_t bytes)
    {
        if (s_taken + bytes > most)
            throw LispError(lisp_texts::noMemory);
        s_taken += bytes;
    }
    static void release(std::size_t bytes) { s_taken -= bytes; }

private:
    static constexpr std::size_t most = std::size_t{1} << 30;
    static inline std::size_t s_taken = 0;
};

constexpr std::size_t pairBytes = sizeof(LispPair) + 32; // with what counts its owners
constexpr std::size_t longestText = std::size_t{1} << 22;

std::size_t bytesOf(const std::wstring& text)
{
    return sizeof(LispText) + text.size() * sizeof(wchar_t);
}

} // namespace

LispValue::LispValue(std::wstring text) : m_data(std::make_shared<const LispText>(std::move(text))) {}

LispValue LispValue::pair(LispValue car, LispValue cdr)
{
    LispValue value;
    value.m_data = std::make_shared<LispPair>(std::move(car), std::move(cdr));
    return value;
}

const LispValue& LispValue::car() const
{
    return pairAddress()->m_car;
}
const LispValue& LispValue::cdr() const
{
    return pairAddress()->m_cdr;
}
const LispPair* LispValue::pairAddress() const
{
    return std::get<std::shared_ptr<LispPair>>(m_data).get();
}
const std::wstring& LispValue::text() const
{
    return std::get<std::shared_ptr<const LispText>>(m_data)->text();
}

bool LispValue::isSame(const LispValue& other) const
{
    if (isNumber() && other.isNumber())
        return number() == other.number();
    if (isText() && other.isText())
        return text() == other.text();
    if (name() && other.name())
        return *name() == *other.name();
    return m_data == other.m_data;
}

bool LispValue::isLonelyPair() const
{
    const auto* pair = std::get_if<std::shared_ptr<LispPair>>(&m_data);
    return pair && pair->use_count() == 1;
}

LispPair::LispPair(LispValue car, LispValue cdr)
{
    ValueMemory::take(pairBytes);
    m_car = std::move(car);
    m_cdr = std::move(cdr);
}

LispPair::~LispPair()
{
    ValueMemory::release(pairBytes);
    // Pairs that go with this one are emptied first, so that each one's destructor finds nothing below it.
    std::vector<LispValue> deeper;
    const auto keepCar = [&deeper](LispPair& pair) {
        if (pair.m_car.isLonelyPair())
            deeper.push_back(std::move(pair.m_car));
    };
    keepCar(*this);
    LispValue next = std::move(m_cdr);
    for (;;) {
        while (next.isLonelyPair()) {
            LispPair& pair = *std::get<std::shared_ptr<LispPair>>(next.m_data);
            keepCar(pair);
            LispValue after = std::move(pair.m_cdr);
            pair.m_cdr = LispValue();
            next = std::move(after);
        }
        if (deeper.empty())
            return;
        next = std::move(deeper.back());
        deeper.pop_back();
    }
}

LispText::LispText(std::wstring text) : m_text(std::move(text))
{
    if (m_text.size() > longestText)
        throw LispError(lisp_texts::textTooLong);
    ValueMemory::take(bytesOf(m_text));
}

LispText::~LispText()
{
    ValueMemory::release(bytesOf(m_text));
}

LispValue listOf(std::span<const LispValue> items, LispValue tail)
{
    for (auto item = items.rbegin(); item != items.rend(); ++item)
        tail = LispValue::pair(*item, std::move(tail));
    return tail;
}
