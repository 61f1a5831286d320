#include "tests/hosts/TestService.h"

#include <cstring>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--service") == 0) return RunTestService(argc - 2, argv + 2);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
