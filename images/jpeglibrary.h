#pragma once

#include <QString>

// The JPEG encoder's version as the library reports it, for the start-up check that the library
// is present and works. An empty string means that it could not be started.
QString JpegLibraryVersion();
