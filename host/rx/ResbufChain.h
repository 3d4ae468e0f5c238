#pragma once

#include <cstdarg>
#include <memory>

#include "acutmem.h"

struct ResbufRelease {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};

/// A chain with its owner: released at the end of the scope.
using ResbufChain = std::unique_ptr<resbuf, ResbufRelease>;

/// Builds a chain at its end, in linear time.
class ResbufBuilder {
public:
    /// A new buffer, its value zero.
    resbuf& add(int type);
    void addText(int type, const ACHAR* text);
    void addName(int type, const ads_name name);
    /// Puts a whole chain behind.
    void append(ResbufChain chain);
    ResbufChain take();

private:
    ResbufChain m_head;
    resbuf* m_last = nullptr;
};

/// A chain of pairs of a type and a value, ended by 0 or RTNONE, as acutBuildList takes them. Null for none, and when a
/// type is not known.
ResbufChain builtChain(int type, std::va_list& arguments);

/// The last buffer of a chain; null for none.
resbuf* lastOf(resbuf* chain);
/// The buffer behind one value: behind itself, or behind the RTLE of a list. Null at the end.
const resbuf* afterValue(const resbuf* value);
/// A copy of the buffers from `first` up to `end`, left out, with their texts and blocks.
ResbufChain copiedChain(const resbuf* first, const resbuf* end = nullptr);
