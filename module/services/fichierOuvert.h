#pragma once

#include <cstdio>
#include <memory>

/// Closes a file that nobody asked to close: what closing reports is then lost.
struct fermetureFichier {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

/// A file of the C library, closed when it goes.
using fichierOuvert = std::unique_ptr<std::FILE, fermetureFichier>;
