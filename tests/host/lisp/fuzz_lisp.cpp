// Reads and evaluates any text, with the functions that touch neither files nor the environment.

#include <cstdlib>
#include <string_view>

#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispPrinter.h"
#include "platform/CodePage.h"

namespace {

class Silent : public LispHost {
public:
    void print(const std::wstring&) override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    Silent host;
    LispContext context(host);
    for (const auto& rows :
         {arithmeticBuiltins(), comparisonBuiltins(), listBuiltins(), sortingBuiltins(), functionBuiltins(),
          symbolBuiltins(), textBuiltins(), numberTextBuiltins(), geometryBuiltins(), outputBuiltins()})
        context.define(rows);
    context.setTimeLimit(std::chrono::milliseconds(200));
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const LispOutcome outcome = context.run(platform::wideFromUtf8(bytes));
    if (outcome.failed == outcome.message.empty())
        std::abort(); // a failure says why, and only a failure does
    if (!outcome.failed)
        lispShortened(outcome.value, 10000);
    return 0;
}
