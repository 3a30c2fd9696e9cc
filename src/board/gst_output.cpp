#include "board/gst_output.h"

#include <gst/app/gstappsrc.h>
#include <gst/gst.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace orv {

namespace {

using namespace std::chrono_literals;

// A frame not given back for this long means the output stopped taking them.
constexpr auto STALL_LIMIT = 2s;
constexpr auto BUS_POLL = 50ms;
constexpr int EOS_WAIT_SECONDS = 10;

// The frames lent to GStreamer come back when the last element lets go of
// them, possibly after the sink that lent them is gone; the pool lives until
// then.
struct UstFramePool {
    std::mutex mutex;
    std::condition_variable returned;
    std::vector<std::unique_ptr<uint32_t[]>> frames;
    std::vector<uint32_t*> free;
};

struct UstLentFrame {
    std::shared_ptr<UstFramePool> pool;
    uint32_t* frame;
};

void ReturnFrame(gpointer data) {
    auto* lent = static_cast<UstLentFrame*>(data);
    {
        std::lock_guard lock(lent->pool->mutex);
        lent->pool->free.push_back(lent->frame);
    }
    lent->pool->returned.notify_all();
    delete lent;
}

const char* LaunchLine(EOutputKind kind) {
    switch (kind) {
        case EOutputKind::FILE:
            return "appsrc name=src ! clocksync ! avenc_ffv1 ! matroskamux ! filesink name=out";
        case EOutputKind::SRT:
            // A peer that is slow or absent drops coded packets instead of
            // holding frames back.
            return "appsrc name=src ! clocksync ! videoconvert ! "
                   "x264enc tune=zerolatency speed-preset=ultrafast key-int-max=50 ! "
                   "mpegtsmux ! queue leaky=downstream max-size-buffers=200 max-size-time=0 "
                   "max-size-bytes=0 ! srtsink name=out sync=false wait-for-connection=false";
        default:
            return "appsrc name=src ! decklinkvideosink name=out";
    }
}

class CGstSink : public COutputSink {
public:
    CGstSink(const UstOutputChoice& choice, const UstCardSetup& card, int queueFrames)
        : m_choice(choice), m_card(card), m_nQueue(std::max(queueFrames, 2)) {}
    ~CGstSink() override;

    bool Start(const CfgVideo& mode, std::string& error) override;
    uint32_t* Acquire() override;
    bool Deliver(uint32_t* frame) override;
    void Interrupt() override;
    std::string Error() const override;
    bool SetKeyLevel(int level) override;

private:
    bool Fail(const std::string& reason);
    bool BusFailed();
    void SetCaps(const CfgVideo& mode);
    void SetTarget();

    UstOutputChoice m_choice;
    UstCardSetup m_card;
    int m_nQueue;
    GstElement* m_pPipeline = nullptr;
    GstElement* m_pSource = nullptr;
    GstElement* m_pOut = nullptr;
    GstBus* m_pBus = nullptr;
    std::shared_ptr<UstFramePool> m_pool = std::make_shared<UstFramePool>();
    size_t m_nFrameBytes = 0;
    UstFraction m_rate;
    uint64_t m_nIndex = 0;
    bool m_bInterrupted = false;  // under the pool's mutex
    std::string m_strError;
};

// A file gets its end written: the frames still on their way are coded and
// the container closed, so that it reads back whole.
CGstSink::~CGstSink() {
    if (m_pPipeline && m_choice.kind == EOutputKind::FILE && m_strError.empty() && m_nIndex > 0) {
        gst_app_src_end_of_stream(GST_APP_SRC(m_pSource));
        if (GstMessage* msg = gst_bus_timed_pop_filtered(
                m_pBus, GST_SECOND * EOS_WAIT_SECONDS,
                static_cast<GstMessageType>(GST_MESSAGE_ERROR | GST_MESSAGE_EOS)))
            gst_message_unref(msg);
    }
    if (m_pPipeline) {
        gst_element_set_state(m_pPipeline, GST_STATE_NULL);
        gst_object_unref(m_pPipeline);
    }
    if (m_pBus) gst_object_unref(m_pBus);
    if (m_pSource) gst_object_unref(m_pSource);
    if (m_pOut) gst_object_unref(m_pOut);
}

bool CGstSink::Fail(const std::string& reason) {
    if (m_strError.empty()) m_strError = reason;
    return false;
}

bool CGstSink::Start(const CfgVideo& mode, std::string& error) {
    std::string why;
    if (!InitGStreamer(&why)) return error = why, false;
    GError* parseError = nullptr;
    m_pPipeline = gst_parse_launch(LaunchLine(m_choice.kind), &parseError);
    if (parseError) {
        error = parseError->message;
        g_error_free(parseError);
        return false;
    }
    m_pSource = gst_bin_get_by_name(GST_BIN(m_pPipeline), "src");
    m_pOut = gst_bin_get_by_name(GST_BIN(m_pPipeline), "out");
    m_pBus = gst_element_get_bus(m_pPipeline);
    if (!m_pSource || !m_pOut) return error = "the output could not be built", false;
    SetTarget();
    SetCaps(mode);
    m_nFrameBytes = static_cast<size_t>(mode.nWidth) * static_cast<size_t>(mode.nHeight) * 4;
    for (int i = 0; i < m_nQueue; ++i) {
        m_pool->frames.push_back(std::make_unique<uint32_t[]>(m_nFrameBytes / 4));
        m_pool->free.push_back(m_pool->frames.back().get());
    }
    const bool refused =
        gst_element_set_state(m_pPipeline, GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE;
    if (BusFailed() || refused) {
        error = m_strError.empty() ? "the output did not start" : m_strError;
        return false;
    }
    return true;
}

void CGstSink::SetTarget() {
    switch (m_choice.kind) {
        case EOutputKind::FILE:
            g_object_set(m_pOut, "location", m_choice.target.c_str(), nullptr);
            break;
        case EOutputKind::SRT:
            g_object_set(m_pOut, "uri", m_choice.target.c_str(), nullptr);
            break;
        default:
            g_object_set(m_pOut, "device-number", m_card.nDevice, nullptr);
            gst_util_set_object_arg(G_OBJECT(m_pOut), "keyer-mode",
                                    m_card.nKeyMode ? "external" : "internal");
            g_object_set(m_pOut, "keyer-level", 255, nullptr);
            break;
    }
}

void CGstSink::SetCaps(const CfgVideo& mode) {
    m_rate = FrameRateOf(mode.Duration());
    const bool card = m_choice.kind == EOutputKind::CARD;
    int parN = 1, parD = 1;
    if (card && mode.nHeight == 486) parN = 10, parD = 11;
    if (card && mode.nHeight == 576) parN = 12, parD = 11;
    if (card) gst_util_set_object_arg(G_OBJECT(m_pOut), "mode", ModeShortName(mode).c_str());
    const char* interlace = card && ModeSendsFields(mode) ? "interleaved" : "progressive";
    GstCaps* caps = gst_caps_new_simple("video/x-raw", "format", G_TYPE_STRING, "BGRA", "width",
                                        G_TYPE_INT, mode.nWidth, "height", G_TYPE_INT, mode.nHeight,
                                        "framerate", GST_TYPE_FRACTION, m_rate.num, m_rate.den,
                                        "pixel-aspect-ratio", GST_TYPE_FRACTION, parN, parD,
                                        "interlace-mode", G_TYPE_STRING, interlace, nullptr);
    g_object_set(m_pSource, "caps", caps, "format", GST_FORMAT_TIME, "block", FALSE, "max-bytes",
                 static_cast<guint64>(0), "is-live", FALSE, nullptr);
    gst_caps_unref(caps);
}

bool CGstSink::BusFailed() {
    while (GstMessage* msg = gst_bus_pop_filtered(
               m_pBus, static_cast<GstMessageType>(GST_MESSAGE_ERROR | GST_MESSAGE_EOS))) {
        if (GST_MESSAGE_TYPE(msg) == GST_MESSAGE_ERROR) {
            GError* err = nullptr;
            gst_message_parse_error(msg, &err, nullptr);
            Fail(err ? err->message : "unknown error");
            if (err) g_error_free(err);
        } else {
            Fail("the output ended");
        }
        gst_message_unref(msg);
    }
    return !m_strError.empty();
}

uint32_t* CGstSink::Acquire() {
    const auto start = std::chrono::steady_clock::now();
    std::unique_lock lock(m_pool->mutex);
    while (!m_bInterrupted) {
        if (!m_pool->free.empty()) {
            uint32_t* frame = m_pool->free.back();
            m_pool->free.pop_back();
            return frame;
        }
        lock.unlock();
        if (BusFailed()) return nullptr;
        if (std::chrono::steady_clock::now() - start > STALL_LIMIT)
            return Fail("the output stopped taking frames"), nullptr;
        lock.lock();
        m_pool->returned.wait_for(lock, BUS_POLL);
    }
    return nullptr;
}

bool CGstSink::Deliver(uint32_t* frame) {
    auto* lent = new UstLentFrame{m_pool, frame};
    GstBuffer* buffer = gst_buffer_new_wrapped_full(GST_MEMORY_FLAG_READONLY, frame, m_nFrameBytes,
                                                    0, m_nFrameBytes, lent, ReturnFrame);
    const guint64 second = GST_SECOND * static_cast<guint64>(m_rate.den);
    GST_BUFFER_PTS(buffer) = gst_util_uint64_scale(m_nIndex, second, m_rate.num);
    GST_BUFFER_DURATION(buffer) =
        gst_util_uint64_scale(m_nIndex + 1, second, m_rate.num) - GST_BUFFER_PTS(buffer);
    ++m_nIndex;
    if (gst_app_src_push_buffer(GST_APP_SRC(m_pSource), buffer) != GST_FLOW_OK)
        return BusFailed(), Fail("the output refused a frame");
    return !BusFailed();
}

void CGstSink::Interrupt() {
    {
        std::lock_guard lock(m_pool->mutex);
        m_bInterrupted = true;
    }
    m_pool->returned.notify_all();
}

std::string CGstSink::Error() const {
    return m_strError;
}

bool CGstSink::SetKeyLevel(int level) {
    if (m_choice.kind != EOutputKind::CARD) return false;
    g_object_set(m_pOut, "keyer-level", std::clamp(level, 0, 255), nullptr);
    return true;
}

}  // namespace

bool InitGStreamer(std::string* error) {
    GError* err = nullptr;
    if (gst_init_check(nullptr, nullptr, &err)) return true;
    if (error) *error = err ? err->message : "GStreamer did not start";
    if (err) g_error_free(err);
    return false;
}

std::unique_ptr<COutputSink> MakeGstSink(const UstOutputChoice& choice, const UstCardSetup& card,
                                         int queueFrames) {
    return std::make_unique<CGstSink>(choice, card, queueFrames);
}

}  // namespace orv
