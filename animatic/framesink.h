#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <exception>

// Where an animatic's pictures go: a video or an animated GIF, written to a file by name.
class FrameSink {
public:
    virtual ~FrameSink() = default;
    // Ticks a second: a video's frame rate, or GIF's hundredths of a second.
    virtual int Rate() const = 0;
    // One pane's picture, opaque and of the sink's size, held for `ticks` ticks.
    virtual void Write(const QImage& picture, qint64 ticks) = 0;
    // Writes what is still held and closes the file.
    virtual void Finish() = 0;
};

// Why a video or GIF could not be written.
class AnimaticError : public std::exception {
public:
    explicit AnimaticError(QString message) : message(std::move(message)) {}
    const char* what() const noexcept override { return "animatic error"; }
    QString message;
};
