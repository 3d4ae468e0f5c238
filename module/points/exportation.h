#pragma once

/// Marks what sibling modules may use. Everything else stays hidden inside the module.
#define VELA_EXPORT __attribute__((visibility("default")))
