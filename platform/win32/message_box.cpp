#include <cstdio>

#include "windows.h"

// Without a desktop the text goes to the error stream, as if the user had confirmed it.
int MessageBoxA(HWND /*owner*/, LPCSTR text, LPCSTR caption, UINT /*type*/) {
    std::fprintf(stderr, "%s: %s\n", caption, text);
    return IDOK;
}
