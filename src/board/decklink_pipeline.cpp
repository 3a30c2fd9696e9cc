#include "board/decklink_pipeline.h"

#include <algorithm>
#include <limits>

#include "board/canvas.h"
#include "board/gst_output.h"

namespace orv {

namespace {

constexpr int WAIT_FRAMES = 4;

size_t PixelsOf(const CfgVideo& mode) {
    return static_cast<size_t>(mode.nWidth) * static_cast<size_t>(mode.nHeight);
}

}  // namespace

CDecklinkPipeline::~CDecklinkPipeline() {
    Close();
}

int CDecklinkPipeline::Open(uint32_t* canvas, UstBoardRecord* record,
                            const UstPipelineSetup& setup) {
    m_pCanvas = canvas;
    m_pRecord = record;
    m_Setup = setup;
    m_eClock = EPlayoutClock::THREAD;
    m_bForCard = true;
    Discover();
    const int running = Build();
    Start();
    return running;
}

int CDecklinkPipeline::OpenWith(uint32_t* canvas, UstBoardRecord* record, EPlayoutClock clock) {
    m_pCanvas = canvas;
    m_pRecord = record;
    m_eClock = clock;
    m_bForCard = false;
    m_VideoModes = StandardVideoModes();
    m_AudioModes = StandardAudioModes();
    const int running = Build();
    Start();
    return running;
}

// The canvas goes with the board after this: a late capture or erase finds
// nothing to read.
void CDecklinkPipeline::Close() {
    Stop();
    {
        std::lock_guard lock(m_canvasMutex);
        m_pCanvas = nullptr;
        m_FieldBuffer.clear();
    }
    std::lock_guard lock(m_sinkMutex);
    m_pSink.reset();
    m_strSink.clear();
}

int CDecklinkPipeline::Rebuild() {
    Stop();
    const int running = Build();
    Start();
    return running;
}

// The first card answers for all: its name goes into the record, and its
// modes are the list. Without one the standard list stands.
void CDecklinkPipeline::Discover() {
    m_Devices.clear();
    const std::vector<UstCardInfo> cards = DiscoverCards();
    for (const UstCardInfo& card : cards)
        m_Devices.push_back(card.strName);
    m_VideoModes = cards.empty() ? StandardVideoModes() : cards.front().modes;
    m_AudioModes = StandardAudioModes();
    if (!cards.empty()) SetRecordDeviceName(*m_pRecord, cards.front().strName);
}

std::unique_ptr<COutputSink> CDecklinkPipeline::MakeSink(std::string& name, bool& missingCard) {
    const UstOutputChoice& out = m_Setup.output;
    name = FormatOutputChoice(out);
    missingCard = false;
    if (!m_bForCard)
        return m_eClock == EPlayoutClock::THREAD
                   ? std::unique_ptr<COutputSink>(std::make_unique<CClockSink>())
                   : std::make_unique<CMemorySink>();
    switch (out.kind) {
        case EOutputKind::CARD:
            if (m_Devices.empty()) {
                missingCard = true;
                return nullptr;
            }
            return MakeGstSink(out, {0, m_pRecord->nKeyMode}, m_Setup.nQueueFrames);
        case EOutputKind::FILE:
        case EOutputKind::SRT:
            return MakeGstSink(out, {}, m_Setup.nQueueFrames);
        default:
            return std::make_unique<CClockSink>();
    }
}

// The record's mode, or, on a card that does not offer it, the card's first.
int CDecklinkPipeline::Build() {
    RepairRecordMode(*m_pRecord);
    CfgVideo format = RecordVideoMode(*m_pRecord);
    if (!m_Devices.empty() && FindVideoMode(m_VideoModes, *m_pRecord) < 0 && !m_VideoModes.empty())
        format = m_VideoModes.front();
    {
        std::lock_guard lock(m_canvasMutex);
        m_Format = format;
        m_FieldBuffer.assign(PixelsOf(format), 0);
    }
    std::string name;
    bool missingCard = false;
    std::unique_ptr<COutputSink> sink = MakeSink(name, missingCard);
    std::string error;
    if (sink && sink->Start(format, error)) {
        InstallSink(std::move(sink), name);
        return 1;
    }
    sink.reset();
    InstallClock();
    if (!missingCard || m_Setup.bReportMissingCard)
        Report({name, missingCard ? "no output card answered" : error});
    return 0;
}

void CDecklinkPipeline::InstallSink(std::unique_ptr<COutputSink> sink, const std::string& name) {
    std::lock_guard lock(m_sinkMutex);
    m_pSink = std::move(sink);
    m_strSink = name;
    m_nAppliedLevel = -1;
}

void CDecklinkPipeline::InstallClock() {
    auto clock = std::make_unique<CClockSink>();
    std::string ignored;
    clock->Start(Format(), ignored);
    InstallSink(std::move(clock), FormatOutputChoice({EOutputKind::CLOCK, {}}));
}

// On the playout thread: the clock goes in before the failure is told, and
// a stop that came meanwhile reaches the new sink too.
void CDecklinkPipeline::ReplaceByClock(const std::string& reason) {
    const std::string failed = RunningOutput();
    InstallClock();
    Report({failed, reason});
    std::lock_guard lock(m_sinkMutex);
    if (m_bStop) m_pSink->Interrupt();
}

void CDecklinkPipeline::Report(const UstOutputFailure& failure) {
    std::lock_guard lock(m_listenMutex);
    m_failures.push_back(failure);
    if (m_listener) m_listener(failure);
}

void CDecklinkPipeline::Start() {
    m_nFrames = 0;
    m_nReserved = 0;
    m_bStop = false;
    m_hSync.Open();
    if (m_eClock == EPlayoutClock::THREAD) m_thread = std::thread([this] { Run(); });
}

void CDecklinkPipeline::Stop() {
    m_bStop = true;
    {
        std::lock_guard lock(m_sinkMutex);
        if (m_pSink) m_pSink->Interrupt();
    }
    m_hSync.Close();
    if (m_thread.joinable()) m_thread.join();
    std::lock_guard tick(m_tickMutex);  // a turn by hand ends before the sink goes
}

void CDecklinkPipeline::Run() {
    while (!m_bStop)
        Tick();
}

// While the loop runs, only the loop itself replaces the sink, so the
// pointer taken here stays valid until the turn ends.
void CDecklinkPipeline::Tick() {
    std::lock_guard tick(m_tickMutex);
    if (m_bStop) return;
    COutputSink* sink = nullptr;
    {
        std::lock_guard lock(m_sinkMutex);
        sink = m_pSink.get();
    }
    if (!sink) return;
    uint32_t* frame = sink->Acquire();
    if (!frame) {
        if (!m_bStop) ReplaceByClock(sink->Error());
        return;
    }
    const CfgVideo format = Format();
    Fill(frame);
    m_hSync.Set();
    const int level = KeyLevel();
    {
        std::lock_guard lock(m_listenMutex);
        for (const auto& [id, observer] : m_observers)
            observer(frame, format, level);
    }
    if (level != m_nAppliedLevel) {
        m_bSinkKeys = sink->SetKeyLevel(level);
        m_nAppliedLevel = level;
    }
    if (!m_bSinkKeys) ScaleFrameByLevel(frame, PixelsOf(format), level);
    if (!sink->Deliver(frame)) {
        if (!m_bStop) ReplaceByClock(sink->Error());
        return;
    }
    ++m_nFrames;
}

// Which moments go where: the held field and the canvas make the two fields
// of an interlaced frame; a mode without a rule here leaves the frame as the
// output lent it.
void CDecklinkPipeline::Fill(uint32_t* frame) {
    std::lock_guard lock(m_canvasMutex);
    const CfgVideo& f = m_Format;
    const UstView view{m_pCanvas, m_nOriginX.load(std::memory_order_relaxed),
                       m_nOriginY.load(std::memory_order_relaxed), f.nWidth, f.nHeight};
    const int fps = FramesPerSecond(f.Duration());
    const uint32_t* held = m_FieldBuffer.data();
    if (m_bFullFrame.load(std::memory_order_relaxed) || f.nWidth == 1280) {
        CopyFrame(frame, view);
    } else if (f.nWidth == 1920 || (f.nWidth == 720 && fps == 25)) {
        CopyHeld(frame, held, f.nWidth, f.nHeight, 1);
        CopyField(frame, view, 0);
    } else if (f.nWidth == 720 && fps == 29) {
        CopyHeld(frame, held, f.nWidth, f.nHeight, 0);
        CopyField(frame, view, 1);
    }
}

bool CDecklinkPipeline::WaitFrame() {
    if (m_eClock == EPlayoutClock::FREE && m_hSync.IsOpen()) Tick();
    return m_hSync.Wait();
}

bool CDecklinkPipeline::WaitFrames() {
    bool all = true;
    for (int i = 0; i < WAIT_FRAMES; ++i)
        all = WaitFrame() && all;
    return all;
}

void CDecklinkPipeline::SetOrigin(int x, int y) {
    m_nOriginX.store(x & CANVAS_MASK, std::memory_order_relaxed);
    m_nOriginY.store(y & CANVAS_MASK, std::memory_order_relaxed);
}

void CDecklinkPipeline::GetOrigin(int& x, int& y) const {
    x = m_nOriginX.load(std::memory_order_relaxed);
    y = m_nOriginY.load(std::memory_order_relaxed);
}

void CDecklinkPipeline::SetKeyLevel(int level) {
    m_nKeyLevel.store(std::min(level, 255), std::memory_order_relaxed);
}

int CDecklinkPipeline::IsInterlaced() const {
    return Format().nWidth != 1280 ? 1 : 0;
}

void CDecklinkPipeline::CaptureField() {
    CaptureFieldRows(0, std::numeric_limits<int>::max());
}

void CDecklinkPipeline::CaptureFieldRows(int first, int last) {
    std::lock_guard lock(m_canvasMutex);
    if (m_FieldBuffer.empty() || !m_pCanvas) return;
    const CfgVideo& f = m_Format;
    const int selector = f.nWidth == 720 && FramesPerSecond(f.Duration()) == 29 ? 0 : 1;
    CopyFieldRows(m_FieldBuffer.data(),
                  {m_pCanvas, m_nOriginX.load(), m_nOriginY.load(), f.nWidth, f.nHeight}, selector,
                  first, last);
}

void CDecklinkPipeline::ClearView() {
    std::lock_guard lock(m_canvasMutex);
    if (!m_pCanvas) return;
    const CfgVideo& f = m_Format;
    const int x = m_nOriginX.load(), y = m_nOriginY.load();
    CanvasFillRect(m_pCanvas, x, y, f.nWidth, f.nHeight, 0);
    if (f.nWidth != 1280 && !m_FieldBuffer.empty())
        CopyField(m_FieldBuffer.data(), {m_pCanvas, x, y, f.nWidth, f.nHeight}, 1);
}

void CDecklinkPipeline::SetSetup(const UstPipelineSetup& setup) {
    std::lock_guard lock(m_sinkMutex);
    m_Setup = setup;
}

UstPipelineSetup CDecklinkPipeline::Setup() const {
    std::lock_guard lock(m_sinkMutex);
    return m_Setup;
}

int CDecklinkPipeline::AddFrameObserver(FrameObserver observer) {
    std::lock_guard lock(m_listenMutex);
    m_observers.emplace_back(m_nNextObserver, std::move(observer));
    return m_nNextObserver++;
}

void CDecklinkPipeline::RemoveFrameObserver(int id) {
    std::lock_guard lock(m_listenMutex);
    std::erase_if(m_observers, [id](const auto& o) { return o.first == id; });
}

void CDecklinkPipeline::SetFailureListener(FailureListener listener) {
    std::lock_guard lock(m_listenMutex);
    m_listener = std::move(listener);
}

CfgVideo CDecklinkPipeline::Format() const {
    std::lock_guard lock(m_canvasMutex);
    return m_Format;
}

std::string CDecklinkPipeline::RunningOutput() const {
    std::lock_guard lock(m_sinkMutex);
    return m_strSink;
}

std::vector<UstOutputFailure> CDecklinkPipeline::Failures() const {
    std::lock_guard lock(m_listenMutex);
    return m_failures;
}

}  // namespace orv
