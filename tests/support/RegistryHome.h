// A test fixture whose registry is empty and its own.
#pragma once

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <string>

class RegistryHome : public testing::Test {
protected:
    RegistryHome()
    {
        if (const char* before = std::getenv("COREKIT_HOME")) m_before = before;
        setenv("COREKIT_HOME", m_home.Path().c_str(), 1);
    }
    ~RegistryHome() override
    {
        if (m_before.empty())
            unsetenv("COREKIT_HOME");
        else
            setenv("COREKIT_HOME", m_before.c_str(), 1);
    }

    TempFolder m_home;

private:
    std::string m_before;
};
