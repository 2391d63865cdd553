#include "images/jpeglibrary.h"

#include <turbojpeg.h>

QString JpegLibraryVersion() {
    tjhandle handle = tjInitCompress();
    if (!handle) return {};
    tjDestroy(handle);
    return QStringLiteral("libjpeg-turbo (TurboJPEG)");
}
