#pragma once

#include "lisp/eval/LispValue.h"
#include "rx/ResbufChain.h"

class LispContext;

/// Values as chains of result buffers and back. Lists stand between RTLB and RTLE, points among them: a list of reals.

/// Appends values to a chain, in linear time.
class LispChain {
public:
    explicit LispChain(LispContext& context) : m_context(context) {}

    /// @throws LispError for what has no result buffer: functions, files, symbols but T.
    void add(const LispValue& value);
    ResbufChain take() { return m_chain.take(); }

private:
    void addAtom(const LispValue& value);

    LispContext& m_context;
    ResbufBuilder m_chain;
};

/// A chain of the arguments of a call; null for none.
ResbufChain chainOf(LispContext& context, LispArguments arguments);

/// The first value of a chain. Null is nil; "no value" (RTVOID) is the symbol that shows as nothing.
LispValue valueOfChain(LispContext& context, const resbuf* chain);

/// What one buffer holds, whose type is an RT... code or a group code; nil for those that hold nothing.
LispValue valueOfBuffer(LispContext& context, const resbuf& buffer);

/// Writes a value into a buffer as its type asks; false for a type that holds nothing, or bytes.
/// @throws LispError for a value that does not fit.
bool setBuffer(resbuf& buffer, const LispValue& value);
