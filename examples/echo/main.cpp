// echo [PORT [WORKERS]]: serves until standard input ends.
#include "EchoServer.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
try {
    EchoServer server;
    const int port = server.Start(argc > 1 ? std::atoi(argv[1]) : 0, argc > 2 ? std::atoi(argv[2]) : 2);
    std::printf("Listening on 127.0.0.1:%d\n", port);
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    server.Stop();
    std::printf("%d connections at once, %llu bytes echoed\n", server.MostAtOnce(),
                static_cast<unsigned long long>(server.BytesEchoed()));
} catch (CException* failure) {
    char text[512];
    failure->GetErrorMessage(text, sizeof text);
    std::fprintf(stderr, "echo: %s\n", text);
    failure->Delete();
    return 1;
}
