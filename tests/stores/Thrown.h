// What a refused operation says.
#pragma once

#include "corekit/foundation/ChainedException.h"

#include <gtest/gtest.h>
#include <string>

template <class Operation>
std::string Thrown(Operation operation)
{
    try {
        operation();
    } catch (CException* thrown) {
        char text[512] = "";
        thrown->GetErrorMessage(text, sizeof text, nullptr);
        thrown->Delete();
        return text;
    }
    return "nothing";
}

inline bool StartsWith(const std::string& text, const char* start) { return text.rfind(start, 0) == 0; }
