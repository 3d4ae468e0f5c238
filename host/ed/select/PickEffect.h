#pragma once

/// What picking does to a selection.
enum class PickEffect { adds, removes, replaces };

/// By PICKADD: what is picked joins, and leaves with Shift held; where it is 0, it takes the place of what was
/// selected, and with Shift it joins, or leaves when all of it is in.
PickEffect pickEffect(bool withShift, bool allIn);
