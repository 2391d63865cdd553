#include "targets.h"

#include <cstdio>
#include <cstdlib>

void FuzzCheck(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "fuzz check failed: %s\n", what);
    std::abort();
}
