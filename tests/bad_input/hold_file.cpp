// Keeps a file for itself until its standard input ends, as a program does that has it open: hold_file FILE
#include <windows.h>

#include <cstdio>

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const HANDLE file =
        CreateFileA(arguments[1], GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 1;
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    CloseHandle(file);
    return 0;
}
