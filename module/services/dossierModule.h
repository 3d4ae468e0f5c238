#pragma once

#include <string>

/// The folder that the module's own file stands in, native and absolute, UTF-8; empty when the system does not say.
/// What the module loads only when it needs it stands there as well.
std::string dossierModule();
