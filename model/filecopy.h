#pragma once

#include <QString>

// Replaces `to` with a copy of `from`, or leaves it as it was. The copy is made beside `to` under
// a temporary name and renamed over it only once complete and of the source's full length, so a
// copy cut short (a full disk) never takes the place of a file. The bytes are shared with the
// source where the file system can (a reflink), copied inside the kernel otherwise
// (copy_file_range), and read and written only where neither works. The copy takes the source's
// permissions. False when `to` was not replaced.
bool CopyFileReplacing(const QString& from, const QString& to);
