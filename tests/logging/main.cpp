// The tests, and the other process that some of them start.
#include "corekit/logging/LogTarget.h"
#include "corekit/platform/Errors.h"

#include <cstring>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--open-log") == 0) {
        CLogTarget log;
        return log.CreateLogFile("Server", argv[2], 0) ? 0 : static_cast<int>(GetLastError());
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
