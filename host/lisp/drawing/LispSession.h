#pragma once

#include <string>
#include <string_view>

#include "lisp/eval/LispContext.h"

#include "acdocman.h"

/// AutoLISP of one document: the language, the functions of the drawing and of the command line, and those that modules
/// define. Lives as long as the document.
class LispSession : private LispHost {
public:
    static LispSession& of(AcApDocument& document);
    LispSession();

    /// What a line at the command line gives.
    struct Answer {
        std::wstring text; ///< the value as it is shown; empty when there is nothing to show
        LispOutcome outcome;
    };
    /// Evaluates the expressions of a text. The document must be the current one.
    Answer evaluate(std::wstring_view text);

    LispContext& context() { return m_context; }

private:
    void print(const std::wstring& text) override;
    bool interrupted() override;
    bool hasFunction(const std::wstring& name) override;
    LispValue callFunction(LispContext& context, const std::wstring& name, LispArguments arguments) override;

    LispContext m_context{*this};
};
