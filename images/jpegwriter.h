#pragma once

#include <QByteArray>
#include <QString>

class cDIBSection;

// Writes the picture held by a DIB section as a JPEG file: rows read bottom-up, blue-green-red,
// the row padding skipped; quality 75, YCbCr with 4:2:0 chroma subsampling. The picture is
// encoded into memory and written in one write. An existing file is written from its first byte
// and not truncated, so the tail of an older, longer file stays behind the new picture.
//
// False, with no file touched, when the encoder cannot start or cannot encode the picture (an
// empty section, for one). A file that cannot be opened or written is a RunTimeError (76 for a
// missing folder, 75 otherwise) for the caller to trap.
bool SaveJPG(cDIBSection& dib, const QString& fileName);
bool WriteJPG(cDIBSection& dib, const QString& fileName);

// The two halves of WriteJPG: the encoding into memory (false as above), and the write of the
// bytes over the start of the file (RunTimeError as above).
bool EncodeJPG(cDIBSection& dib, QByteArray& out);
void WriteJpegFile(const QByteArray& jpeg, const QString& fileName);

// The JPEG quality every exported picture is written at.
constexpr int kJpegQuality = 75;
