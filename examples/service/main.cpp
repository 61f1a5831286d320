#include "UploadService.h"

int main(int argc, char** argv)
{
    CUploadService service;
    return service.StartConsoleApp("script-upload", argc - 1, argv + 1);
}
