#pragma once
// Frames by number from any video file that FFmpeg decodes. Frame numbers
// follow presentation order; a read lands on exactly the frame asked for,
// decoding forward from the nearest earlier key frame, and reading on in
// order needs no seek at all.

#include <string>
#include <vector>

#include "media/media_player.h"

struct AVFormatContext;
struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct SwsContext;

namespace orv {

class AVIPlayer : public MediaPlayer {
public:
    // Opens the file and its first video stream and decoder.
    explicit AVIPlayer(const std::string& file);
    ~AVIPlayer() override;

    bool Open() override;
    int ReadFrameTo(int index, uint32_t* out) override;

private:
    enum class EFound { FRAME, MISSING, TOO_LATE };

    bool OpenStream(const std::string& file);
    bool IndexPackets();
    void Close();
    // The decoded frame of the index, or null.
    const AVFrame* FrameAt(int index);
    const AVFrame* SeekAndDecode(int index);
    bool SeekTo(int64_t timestamp);
    // Decodes on to the frame of the timestamp: that frame, or the last one
    // before it when the stream has none of its own.
    EFound DecodeTo(int64_t timestamp, const AVFrame*& found);
    // The next decoded frame in the work frame, or false at the end.
    bool NextFrame();
    int64_t TimestampOf(const AVFrame* frame) const;
    // Any other pixel layout, or a frame of another size, through swscale.
    bool ConvertByScaler(const AVFrame* frame, uint32_t* out);

    std::string m_strFile;
    AVFormatContext* m_pFormat = nullptr;
    AVCodecContext* m_pCodec = nullptr;
    int m_nStream = -1;
    AVPacket* m_pPacket = nullptr;
    AVFrame* m_pWork = nullptr;
    AVFrame* m_pHeld = nullptr;
    AVFrame* m_pPending = nullptr;
    bool m_bPending = false;
    SwsContext* m_pScaler = nullptr;
    // Frame timestamps in presentation order, and those of key frames.
    // Without timestamps frames count from the start of the stream.
    std::vector<int64_t> m_framePts;
    std::vector<int64_t> m_keyPts;
    bool m_bTimestamps = true;
    int64_t m_nDecoded = 0;  // frames out since the last seek, when counting
    int m_nLast = -1;        // the frame the decoder stands after
    bool m_bInputEnded = false;
    bool m_bNeedKey = false;  // after a seek, until the decoder gives a key frame
};

// FFmpeg reports every damaged packet on the terminal; a program that
// plays files of any origin calls this once to keep only fatal errors.
void QuietMediaDiagnostics();

}  // namespace orv
