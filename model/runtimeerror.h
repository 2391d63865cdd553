#pragma once

#include <QByteArray>
#include <QString>
#include <exception>

// The one error that stops the program. It carries the classic error number and its text; it
// travels up to the event loop, which reports it once and ends the program (see KelvrinApplication).
// Routines that are meant to trap a failure catch it where they trap.
class RunTimeError : public std::exception {
public:
    RunTimeError(int number, QString text);

    int number() const noexcept { return number_; }
    const QString& text() const noexcept { return text_; }
    const char* what() const noexcept override { return utf8_.constData(); }

    // The numbers this program raises, with their usual texts.
    static RunTimeError Overflow();                              // 6
    static RunTimeError OutOfMemory();                           // 7
    static RunTimeError SubscriptOutOfRange();                   // 9
    static RunTimeError TypeMismatch();                          // 13
    static RunTimeError FileNotFound(const QString& path = {});  // 53
    static RunTimeError PathFileAccess(const QString& path = {}); // 75
    static RunTimeError PathNotFound(const QString& path = {});  // 76
    static RunTimeError InvalidPicture(const QString& path = {}); // 481

private:
    int number_;
    QString text_;
    QByteArray utf8_;
};
