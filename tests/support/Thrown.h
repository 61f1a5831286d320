// What a refused operation throws.
#pragma once

#include "corekit/foundation/ChainedException.h"

#include <string>

// The message of what `operation` throws with those of its causes, a line each; "nothing" if it returns.
template <class Operation>
std::string Thrown(Operation operation)
{
    try {
        operation();
    } catch (CException* thrown) {
        const std::string text = GetExceptionMsg(thrown).GetString();
        thrown->Delete();
        return text;
    }
    return "nothing";
}

// The first line of that: the outermost message.
template <class Operation>
std::string ThrownLine(Operation operation)
{
    const std::string text = Thrown(operation);
    return text.substr(0, text.find_first_of("\r\n"));
}

// The class of what `operation` throws; null if it returns.
template <class Operation>
const CRuntimeClass* ThrownClass(Operation operation)
{
    try {
        operation();
    } catch (CException* thrown) {
        const CRuntimeClass* const kind = thrown->GetRuntimeClass();
        thrown->Delete();
        return kind;
    }
    return nullptr;
}
