// A program that names a function of its own as the library names one of its: each calls its own.
#include "corekit/foundation/FileDeletion.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {
int calls = 0;
}

[[gnu::visibility("default")]] int DeleteFileA(const char*) { return ++calls; }

int main()
{
    char name[] = "/tmp/corekit-own-XXXXXX";
    ::close(::mkstemp(name));
    File_DeleteFile(name, 0);
    const bool isGone = ::access(name, F_OK) != 0;
    ::unlink(name);
    std::printf("%d calls, %s\n", calls, isGone ? "gone" : "there");
    return isGone && calls == 0 && DeleteFileA("x") == 1 ? 0 : 1;
}
