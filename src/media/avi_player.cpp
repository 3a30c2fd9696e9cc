#include "media/avi_player.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cstring>

#include "media/ani32_codec.h"

namespace orv {

namespace {

// Reading on from the last frame beats a seek back to a key frame while the
// frame asked for is at most this far ahead.
constexpr int FORWARD_DECODE_LIMIT = 64;
// Key frames tried, each earlier than the last, before decoding from the
// start of the stream.
constexpr int SEEK_ATTEMPTS = 3;

int RateOf(const AVStream* stream) {
    AVRational rate = stream->avg_frame_rate;
    if (rate.num <= 0 || rate.den <= 0) rate = stream->r_frame_rate;
    if (rate.num <= 0 || rate.den <= 0) return ANIMATION_FPS;
    return std::max(1, rate.num / rate.den);
}

// Each colour's bits moved to the top of its byte, the low bits zero.
inline uint32_t From16(uint16_t v, int greenBits) {
    const uint32_t b = (v & 31u) << 3;
    const uint32_t g = greenBits == 5 ? ((v >> 5) & 31u) << 3 : ((v >> 5) & 63u) << 2;
    const uint32_t r = greenBits == 5 ? ((v >> 10) & 31u) << 3 : ((v >> 11) & 31u) << 3;
    return 0xFF000000u | (r << 16) | (g << 8) | b;
}

void ConvertRow(const AVFrame* frame, int y, int width, uint32_t* out) {
    const uint8_t* src = frame->data[0] + static_cast<ptrdiff_t>(y) * frame->linesize[0];
    switch (frame->format) {
        case AV_PIX_FMT_BGRA:
        case AV_PIX_FMT_BGR0:
            for (int x = 0; x < width; ++x) {
                uint32_t v;
                std::memcpy(&v, src + x * 4, 4);
                out[x] = v | 0xFF000000u;
            }
            break;
        case AV_PIX_FMT_BGR24:
            for (int x = 0; x < width; ++x, src += 3)
                out[x] = 0xFF000000u | (uint32_t{src[2]} << 16) | (uint32_t{src[1]} << 8) | src[0];
            break;
        case AV_PIX_FMT_RGB555LE:
        case AV_PIX_FMT_RGB565LE: {
            const int greenBits = frame->format == AV_PIX_FMT_RGB555LE ? 5 : 6;
            for (int x = 0; x < width; ++x)
                out[x] =
                    From16(static_cast<uint16_t>(src[2 * x] | (src[2 * x + 1] << 8)), greenBits);
            break;
        }
        default: {  // AV_PIX_FMT_PAL8
            const auto* palette = reinterpret_cast<const uint32_t*>(frame->data[1]);
            for (int x = 0; x < width; ++x)
                out[x] = palette[src[x]] | 0xFF000000u;
        }
    }
}

bool ConvertsDirectly(int format) {
    return format == AV_PIX_FMT_BGRA || format == AV_PIX_FMT_BGR0 || format == AV_PIX_FMT_BGR24 ||
           format == AV_PIX_FMT_RGB555LE || format == AV_PIX_FMT_RGB565LE ||
           format == AV_PIX_FMT_PAL8;
}

}  // namespace

void QuietMediaDiagnostics() {
    av_log_set_level(AV_LOG_FATAL);
}

AVIPlayer::AVIPlayer(const std::string& file) : m_strFile(file) {
    if (!OpenStream(file)) Close();
}

AVIPlayer::~AVIPlayer() {
    Close();
    av_frame_free(&m_pWork);
    av_frame_free(&m_pHeld);
    av_frame_free(&m_pPending);
    av_packet_free(&m_pPacket);
    sws_freeContext(m_pScaler);
}

bool AVIPlayer::OpenStream(const std::string& file) {
    if (avformat_open_input(&m_pFormat, file.c_str(), nullptr, nullptr) < 0) return false;
    if (avformat_find_stream_info(m_pFormat, nullptr) < 0) return false;
    const AVCodec* decoder = nullptr;
    m_nStream = av_find_best_stream(m_pFormat, AVMEDIA_TYPE_VIDEO, -1, -1, &decoder, 0);
    if (m_nStream < 0 || !decoder) return false;
    const AVStream* stream = m_pFormat->streams[m_nStream];
    if (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) return false;
    m_pCodec = avcodec_alloc_context3(decoder);
    if (!m_pCodec || avcodec_parameters_to_context(m_pCodec, stream->codecpar) < 0) return false;
    m_pCodec->thread_count = 1;  // each source decodes on its reader's thread
    if (avcodec_open2(m_pCodec, decoder, nullptr) < 0) return false;
    if (!m_pPacket) m_pPacket = av_packet_alloc();
    if (!m_pWork) m_pWork = av_frame_alloc();
    if (!m_pHeld) m_pHeld = av_frame_alloc();
    if (!m_pPending) m_pPending = av_frame_alloc();
    m_bInputEnded = false;
    m_bNeedKey = false;
    m_bPending = false;
    m_nLast = -1;
    m_nDecoded = 0;
    return m_pPacket && m_pWork && m_pHeld && m_pPending;
}

void AVIPlayer::Close() {
    avcodec_free_context(&m_pCodec);
    avformat_close_input(&m_pFormat);
    if (m_pHeld) av_frame_unref(m_pHeld);
    if (m_pPending) av_frame_unref(m_pPending);
    m_bPending = false;
}

// One pass over the stream's packets, without decoding, through a second
// opening of the file so that the decoder's stays at the start.
bool AVIPlayer::IndexPackets() {
    AVFormatContext* scan = nullptr;
    if (avformat_open_input(&scan, m_strFile.c_str(), nullptr, nullptr) < 0) return false;
    AVPacket* packet = av_packet_alloc();
    size_t packets = 0;
    if (packet && avformat_find_stream_info(scan, nullptr) >= 0 &&
        m_nStream < static_cast<int>(scan->nb_streams)) {
        while (av_read_frame(scan, packet) >= 0) {
            // A damaged packet is never given to the decoder, so it is no frame.
            if (packet->stream_index == m_nStream && !(packet->flags & AV_PKT_FLAG_CORRUPT)) {
                ++packets;
                if (packet->pts == AV_NOPTS_VALUE) m_bTimestamps = false;
                m_framePts.push_back(packet->pts);
                if (packet->flags & AV_PKT_FLAG_KEY) m_keyPts.push_back(packet->pts);
            }
            av_packet_unref(packet);
        }
    }
    av_packet_free(&packet);
    avformat_close_input(&scan);
    if (!m_bTimestamps) {
        m_framePts.clear();
        m_keyPts.clear();
    } else {
        std::sort(m_framePts.begin(), m_framePts.end());
        m_framePts.erase(std::unique(m_framePts.begin(), m_framePts.end()), m_framePts.end());
        std::sort(m_keyPts.begin(), m_keyPts.end());
        packets = m_framePts.size();
    }
    if (packets == 0 || packets > INT32_MAX) return false;
    m_info.nFrames = static_cast<int32_t>(packets);
    return true;
}

bool AVIPlayer::Open() {
    if (m_bOpen || !m_pCodec || !IndexPackets()) {
        m_info = {};
        return false;
    }
    const AVFrame* first = FrameAt(0);
    if (!first || first->width <= 0 || first->height <= 0 ||
        static_cast<uint32_t>(first->width) > MAX_ANI_EXTENT ||
        static_cast<uint32_t>(first->height) > MAX_ANI_EXTENT) {
        m_info = {};
        return false;
    }
    m_info.nFps = RateOf(m_pFormat->streams[m_nStream]);
    m_info.nWidth = first->width;
    m_info.nHeight = first->height;
    if (!AllocateFrame()) {
        m_info = {};
        return false;
    }
    m_bOpen = 1;
    return true;
}

int AVIPlayer::ReadFrameTo(int index, uint32_t* out) {
    if (!m_bOpen || !out || index < 0 || index >= m_info.nFrames) return 0;
    const AVFrame* frame = FrameAt(index);
    if (!frame) return 0;
    if (frame->width == m_info.nWidth && frame->height == m_info.nHeight &&
        ConvertsDirectly(frame->format)) {
        for (int y = 0; y < m_info.nHeight; ++y)
            ConvertRow(frame, y, m_info.nWidth, out + static_cast<size_t>(y) * m_info.nWidth);
        return 1;
    }
    return ConvertByScaler(frame, out) ? 1 : 0;
}

bool AVIPlayer::ConvertByScaler(const AVFrame* frame, uint32_t* out) {
    const auto format = static_cast<AVPixelFormat>(frame->format);
    m_pScaler = sws_getCachedContext(m_pScaler, frame->width, frame->height, format, m_info.nWidth,
                                     m_info.nHeight, AV_PIX_FMT_BGRA, SWS_BILINEAR, nullptr,
                                     nullptr, nullptr);
    if (!m_pScaler) return false;
    uint8_t* planes[4] = {reinterpret_cast<uint8_t*>(out), nullptr, nullptr, nullptr};
    const int strides[4] = {m_info.nWidth * 4, 0, 0, 0};
    if (sws_scale(m_pScaler, frame->data, frame->linesize, 0, frame->height, planes, strides) <= 0)
        return false;
    // Frames of video files are opaque, whatever the file's own alpha says.
    const AVPixFmtDescriptor* desc = av_pix_fmt_desc_get(format);
    if (desc && (desc->flags & (AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_PAL)))
        for (size_t i = 0, n = PixelCount(); i < n; ++i)
            out[i] |= 0xFF000000u;
    return true;
}

int64_t AVIPlayer::TimestampOf(const AVFrame* frame) const {
    return frame->pts;
}

const AVFrame* AVIPlayer::FrameAt(int index) {
    if (index == m_nLast && m_pHeld->buf[0]) return m_pHeld;
    if (m_nLast >= 0 && index > m_nLast && index - m_nLast <= FORWARD_DECODE_LIMIT) {
        const int64_t target = m_bTimestamps ? m_framePts[static_cast<size_t>(index)] : index;
        const AVFrame* found = nullptr;
        if (DecodeTo(target, found) == EFound::FRAME) {
            m_nLast = index;
            return found;
        }
    }
    return SeekAndDecode(index);
}

const AVFrame* AVIPlayer::SeekAndDecode(int index) {
    m_nLast = -1;
    const AVFrame* found = nullptr;
    if (m_bTimestamps) {
        const int64_t target = m_framePts[static_cast<size_t>(index)];
        auto key = std::upper_bound(m_keyPts.begin(), m_keyPts.end(), target);
        for (int attempt = 0; attempt < SEEK_ATTEMPTS && key != m_keyPts.begin(); ++attempt) {
            --key;
            if (!SeekTo(*key)) continue;
            const EFound result = DecodeTo(target, found);
            if (result == EFound::FRAME) {
                m_nLast = index;
                return found;
            }
            if (result == EFound::MISSING) return nullptr;
        }
    }
    // From the very start: a fresh opening of the file and decoder.
    Close();
    if (!OpenStream(m_strFile)) {
        Close();
        return nullptr;
    }
    const int64_t target = m_bTimestamps ? m_framePts[static_cast<size_t>(index)] : index;
    if (DecodeTo(target, found) != EFound::FRAME) return nullptr;
    m_nLast = index;
    return found;
}

bool AVIPlayer::SeekTo(int64_t timestamp) {
    if (av_seek_frame(m_pFormat, m_nStream, timestamp, AVSEEK_FLAG_BACKWARD) < 0) return false;
    avcodec_flush_buffers(m_pCodec);
    av_frame_unref(m_pHeld);
    av_frame_unref(m_pPending);
    m_bPending = false;
    m_bInputEnded = false;
    m_nDecoded = 0;
    m_bNeedKey = true;
    return true;
}

AVIPlayer::EFound AVIPlayer::DecodeTo(int64_t timestamp, const AVFrame*& found) {
    while (NextFrame()) {
        // Containers without an index may call every packet a key frame;
        // only the decoder knows which frame a seek can start from.
        if (m_bNeedKey && !m_pWork->key_frame) {
            if (TimestampOf(m_pWork) >= timestamp) return EFound::TOO_LATE;
            continue;
        }
        m_bNeedKey = false;
        if (TimestampOf(m_pWork) > timestamp) {
            av_frame_move_ref(m_pPending, m_pWork);
            m_bPending = true;
            // A frame the stream does not have shows the one before it.
            if (!m_pHeld->buf[0]) return EFound::TOO_LATE;
            found = m_pHeld;
            return EFound::FRAME;
        }
        av_frame_unref(m_pHeld);
        av_frame_move_ref(m_pHeld, m_pWork);
        if (TimestampOf(m_pHeld) == timestamp) {
            found = m_pHeld;
            return EFound::FRAME;
        }
    }
    return EFound::MISSING;
}

bool AVIPlayer::NextFrame() {
    if (m_bPending) {
        av_frame_move_ref(m_pWork, m_pPending);
        m_bPending = false;
        return true;
    }
    for (;;) {
        const int received = avcodec_receive_frame(m_pCodec, m_pWork);
        if (received == 0 &&
            (m_pWork->decode_error_flags || (m_pWork->flags & AV_FRAME_FLAG_CORRUPT)))
            continue;  // a damaged frame is no frame
        if (received == 0) {
            if (!m_bTimestamps)
                m_pWork->pts = m_nDecoded++;
            else if (m_pWork->pts == AV_NOPTS_VALUE)
                m_pWork->pts = m_pWork->best_effort_timestamp;
            return true;
        }
        if (received == AVERROR_EOF || m_bInputEnded) return false;
        // Wanting input, or a damaged frame: the next packet of the stream.
        for (;;) {
            if (av_read_frame(m_pFormat, m_pPacket) < 0) {
                avcodec_send_packet(m_pCodec, nullptr);
                m_bInputEnded = true;
                break;
            }
            const bool ours = m_pPacket->stream_index == m_nStream;
            if (ours && !(m_pPacket->flags & AV_PKT_FLAG_CORRUPT))
                avcodec_send_packet(m_pCodec, m_pPacket);
            av_packet_unref(m_pPacket);
            if (ours) break;
        }
    }
}

}  // namespace orv
