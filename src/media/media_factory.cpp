#include "media/media_factory.h"

#include <QFile>
#include <QFileInfo>

#include "media/ani32_player.h"
#include "media/avi_player.h"
#include "media/qrdani_player.h"

namespace orv {

int GetMediaType(const QString& file) {
    const QString ext = QFileInfo(file).suffix().toUpper();
    if (ext == QLatin1String("QRDANI")) return MEDIA_QRDANI;
    if (ext == QLatin1String("ANI32")) return MEDIA_ANI32;
    for (const char* video : {"AVI", "MOV", "MP4", "MKV", "WEBM", "MXF"})
        if (ext == QLatin1String(video)) return MEDIA_AVI;
    return MEDIA_UNKNOWN;
}

std::unique_ptr<MediaPlayer> CreateMediaPlayer(const QString& file) {
    const std::string path = QFile::encodeName(file).toStdString();
    std::unique_ptr<MediaPlayer> player;
    switch (GetMediaType(file)) {
        case MEDIA_QRDANI:
            player = std::make_unique<QRDANIPlayer>(path);
            break;
        case MEDIA_ANI32:
            player = std::make_unique<ANI32Player>(path);
            break;
        case MEDIA_AVI:
            player = std::make_unique<AVIPlayer>(path);
            break;
        default:
            return nullptr;
    }
    if (!player->Open()) return nullptr;
    return player;
}

}  // namespace orv
