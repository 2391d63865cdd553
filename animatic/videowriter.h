#pragma once

#include "animatic/framesink.h"
#include "animatic/playlist.h"

#include <memory>

// MP4 (H.264, yuv420p) or WebM (VP9, else VP8) through FFmpeg's libraries, at a constant frame
// rate: a picture held for n frames is converted once and handed to the encoder n times, which
// codes the repeats as next to nothing.
std::unique_ptr<FrameSink> OpenVideo(const QString& path, AnimaticFormat format, QSize size, int fps);

// The H.264 encoder's preset and quality, also what the benchmark gives the ffmpeg command.
inline constexpr const char* kH264Preset = "veryfast";
inline constexpr const char* kH264Crf = "20";
