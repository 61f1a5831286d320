// A test fixture whose registry is empty and its own.
#pragma once

#include "tests/TempFolder.h"

#include <gtest/gtest.h>

class RegistryHome : public testing::Test {
protected:
    RegistryHome() { setenv("COREKIT_HOME", m_home.Path().c_str(), 1); }
    ~RegistryHome() override { unsetenv("COREKIT_HOME"); }

    TempFolder m_home;
};
