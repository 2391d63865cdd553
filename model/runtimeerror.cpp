#include "model/runtimeerror.h"

#include <utility>

namespace {
// The classic text, with the file in question after it when there is one: a user who meets
// "File not found" deserves to know which file.
QString withPath(const char* text, const QString& path) {
    QString t = QString::fromLatin1(text);
    if (!path.isEmpty()) t += QStringLiteral(": ") + path;
    return t;
}
} // namespace

RunTimeError::RunTimeError(int number, QString text)
    : number_(number), text_(std::move(text)),
      utf8_(QStringLiteral("Run-time error %1: %2").arg(number_).arg(text_).toUtf8()) {}

RunTimeError RunTimeError::Overflow() { return {6, QStringLiteral("Overflow")}; }
RunTimeError RunTimeError::OutOfMemory() { return {7, QStringLiteral("Out of memory")}; }
RunTimeError RunTimeError::SubscriptOutOfRange() { return {9, QStringLiteral("Subscript out of range")}; }
RunTimeError RunTimeError::TypeMismatch() { return {13, QStringLiteral("Type mismatch")}; }
RunTimeError RunTimeError::FileNotFound(const QString& path) { return {53, withPath("File not found", path)}; }
RunTimeError RunTimeError::PathFileAccess(const QString& path) {
    return {75, withPath("Path/File access error", path)};
}
RunTimeError RunTimeError::PathNotFound(const QString& path) { return {76, withPath("Path not found", path)}; }
RunTimeError RunTimeError::InvalidPicture(const QString& path) { return {481, withPath("Invalid picture", path)}; }
