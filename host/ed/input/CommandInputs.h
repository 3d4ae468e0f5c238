#pragma once

#include <deque>
#include <functional>

#include "ed/input/InputSource.h"
#include "rx/ResbufChain.h"

/// The values of (command ...) or acedCommandS, as answers in their order. PAUSE, the text "\\", leaves one answer to
/// the source below: the user.
class CommandInputs : public InputSource {
public:
    /// What a chain holds, lists being points, or an entity with its point. PAUSE is `ended`.
    static std::vector<InputAnswer> answersOf(const resbuf* chain);
    void add(const resbuf* chain);
    bool empty() const { return m_items.empty(); }
    /// The name of the next command. Empty when what is next is no text.
    std::wstring takeName();

    /// What to do when an answer is wanted and none is left: to add some and go on, or to give up. Without it, and
    /// when it gives up, the request is cancelled.
    enum class Out { goOn, cancel, askBelow };
    void whenOut(std::function<Out()> out) { m_out = std::move(out); }
    /// Whether a request was cancelled because nothing was left.
    bool ranOut() const { return m_ranOut; }
    /// Whether an answer was refused.
    bool wasRefused() const { return m_refused; }

    InputAnswer answer(const InputRequest& request) override;
    void refused(const InputRequest& request, const std::wstring& reason) override;
    bool isEchoed() const override;

private:
    std::deque<InputAnswer> m_items;
    std::function<Out()> m_out;
    bool m_ranOut = false;
    bool m_refused = false;
};
