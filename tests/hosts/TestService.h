// A service that the tests start as a process of its own: test_hosts --service [ARGUMENTS]. It notes what it
// hears in $TEST_LOG, and what reaches the system's log in $TEST_EVENTS.
#pragma once

int RunTestService(int argc, char** argv);
