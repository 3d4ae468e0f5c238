#pragma once

#include <cstdlib>

#include <gtest/gtest.h>

#include "TestFolder.h"

/// Each test gets an empty folder of its own, which the platform takes for the place of the user's settings.
class TemporaryTree : public testing::Test, protected TestFolder {
protected:
    TemporaryTree()
    {
        setenv("VELA_REGISTRY", (root / "registre.ini").c_str(), 1);
        setenv("VELA_SUPPORT", (root / "support").c_str(), 1);
    }

    const std::filesystem::path& root = path();
};
