#include "client/command_line.h"

#include <clocale>
#include <cstdio>
#include <exception>

int main(int argc, char **argv) {
    std::setlocale(LC_CTYPE, "");
    try {
        Context context;
        const int status = run_command_line(context, Words(argv + 1, argv + argc));
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) // one of them forgets what the other tells
            return status;
        std::perror("wlanctl: standard output");
    } catch (const std::exception &error) {
        std::fprintf(stderr, "wlanctl: %s\n", error.what());
    }
    return static_cast<int>(Trouble::garbled);
}
