#pragma once

#include <memory>

#include "acutmem.h"

struct ResbufRelease {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};

/// A chain with its owner: released at the end of the scope.
using ResbufChain = std::unique_ptr<resbuf, ResbufRelease>;

/// The last buffer of a chain; null for none.
resbuf* lastOf(resbuf* chain);
/// The buffer behind one value: behind itself, or behind the RTLE of a list. Null at the end.
const resbuf* afterValue(const resbuf* value);
/// A copy of the buffers from `first` up to `end`, left out, with their texts and blocks.
ResbufChain copiedChain(const resbuf* first, const resbuf* end);
