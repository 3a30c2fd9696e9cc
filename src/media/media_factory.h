#pragma once
// Frame sources made by the file's extension, compared in upper case.

#include <QString>

#include <memory>

#include "media/media_player.h"

namespace orv {

enum EMediaType : int {
    MEDIA_QRDANI = 0,
    MEDIA_ANI32 = 1,
    MEDIA_AVI = 2,  // any video file FFmpeg decodes
    MEDIA_UNKNOWN = 4
};

// "QRDANI", "ANI32", and "AVI" with the common video containers (MOV, MP4,
// MKV, WEBM, MXF); anything else is unknown.
int GetMediaType(const QString& file);
// An open source of the file, or null when its type is unknown or it does
// not open with at least one frame.
std::unique_ptr<MediaPlayer> CreateMediaPlayer(const QString& file);

}  // namespace orv
