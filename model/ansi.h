#pragma once

#include <QByteArray>
#include <QString>

// Project files and HTML pages are ANSI text in the Windows-1252 code page, so that files move
// unchanged between installations. Characters outside the code page are written as "?".
QByteArray ToAnsi(const QString& text);
QString FromAnsi(const QByteArray& bytes);
QChar AnsiChar(unsigned char byte);
