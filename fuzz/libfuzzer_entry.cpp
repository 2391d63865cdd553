// The entry point of one libFuzzer executable; KELVRIN_FUZZ_TARGET names its target function.
#include "targets.h"

#include <QCoreApplication>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    // Image format plug-ins (GIF) are found through the application object.
    static QCoreApplication app(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return KELVRIN_FUZZ_TARGET(data, size);
}
