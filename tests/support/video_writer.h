#pragma once
// Video files made in tests with FFmpeg's own encoders, frame by frame.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
}

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace orv::test {

struct UstVideoLayout {
    const char* encoder;
    AVPixelFormat format;
    int width, height, frames;
    int fps = 25;
    int gop = 5;
    int bFrames = 0;
    // Private options of the encoder, name and value in turn.
    std::vector<std::pair<const char*, const char*>> options = {};
};

// Fills frame i, whose planes are allocated in the layout's format.
using FrameFiller = std::function<void(AVFrame* frame, int index)>;

namespace detail {

inline bool Drain(AVFormatContext* out, AVCodecContext* codec, AVStream* stream, AVPacket* pkt) {
    for (;;) {
        const int r = avcodec_receive_packet(codec, pkt);
        if (r == AVERROR(EAGAIN) || r == AVERROR_EOF) return true;
        if (r < 0) return false;
        av_packet_rescale_ts(pkt, codec->time_base, stream->time_base);
        pkt->stream_index = stream->index;
        if (av_interleaved_write_frame(out, pkt) < 0) return false;
    }
}

inline bool Encode(AVFormatContext* out, AVCodecContext* codec, AVStream* stream,
                   const UstVideoLayout& layout, const FrameFiller& fill) {
    AVPacket* pkt = av_packet_alloc();
    AVFrame* frame = av_frame_alloc();
    bool ok = pkt && frame;
    for (int i = 0; ok && i < layout.frames; ++i) {
        av_frame_unref(frame);
        frame->format = layout.format;
        frame->width = layout.width;
        frame->height = layout.height;
        ok = av_frame_get_buffer(frame, 0) >= 0;
        if (!ok) break;
        fill(frame, i);
        frame->pts = i;
        ok = avcodec_send_frame(codec, frame) >= 0 && Drain(out, codec, stream, pkt);
    }
    ok = ok && avcodec_send_frame(codec, nullptr) >= 0 && Drain(out, codec, stream, pkt);
    av_frame_free(&frame);
    av_packet_free(&pkt);
    return ok;
}

}  // namespace detail

// False when the encoder is missing or any step fails.
inline bool WriteVideo(const std::string& path, const UstVideoLayout& layout,
                       const FrameFiller& fill) {
    const AVCodec* encoder = avcodec_find_encoder_by_name(layout.encoder);
    AVFormatContext* out = nullptr;
    if (!encoder || avformat_alloc_output_context2(&out, nullptr, nullptr, path.c_str()) < 0)
        return false;
    AVStream* stream = avformat_new_stream(out, nullptr);
    AVCodecContext* codec = avcodec_alloc_context3(encoder);
    codec->width = layout.width;
    codec->height = layout.height;
    codec->pix_fmt = layout.format;
    codec->time_base = {1, layout.fps};
    codec->framerate = {layout.fps, 1};
    codec->gop_size = layout.gop;
    codec->max_b_frames = layout.bFrames;
    if (out->oformat->flags & AVFMT_GLOBALHEADER) codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    for (const auto& [name, value] : layout.options)
        av_opt_set(codec->priv_data, name, value, 0);
    bool ok = stream && avcodec_open2(codec, encoder, nullptr) >= 0 &&
              avcodec_parameters_from_context(stream->codecpar, codec) >= 0;
    if (ok) {
        stream->time_base = codec->time_base;
        stream->avg_frame_rate = codec->framerate;
        ok = avio_open(&out->pb, path.c_str(), AVIO_FLAG_WRITE) >= 0 &&
             avformat_write_header(out, nullptr) >= 0 &&
             detail::Encode(out, codec, stream, layout, fill) && av_write_trailer(out) >= 0;
    }
    avcodec_free_context(&codec);
    if (out->pb) avio_closep(&out->pb);
    avformat_free_context(out);
    return ok;
}

}  // namespace orv::test
