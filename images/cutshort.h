#pragma once

#include <QByteArray>

// Whether a BMP, GIF or PNG file ends before its picture does. The general picture reader shows what
// it got of such a file and fills the rest; a file cut short (a half-copied frame) is unreadable
// instead, as a JPEG cut short is.

// An uncompressed BMP needs every row its header announces; a run-length encoded one needs its
// end-of-bitmap code. Headers the reader does not know are left to it.
bool BmpCutShort(const QByteArray& data);
// A GIF needs the whole of its first picture: every block up to the end of its image data.
bool GifCutShort(const QByteArray& data);
// A PNG needs every chunk whole up to its end chunk.
bool PngCutShort(const QByteArray& data);
