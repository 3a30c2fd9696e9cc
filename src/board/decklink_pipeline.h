#pragma once
// The output side of the board: discovers the cards and their modes, runs one
// output (card, file, stream, or the clock alone), and runs the playout
// thread that copies the view of the canvas into a frame once a frame,
// assembles the two fields of interlaced modes, and sets "Sync Event".
//
// The output is the clock. The thread waits where the output has no room
// for another frame, and WaitFrame waits for the thread. An output that
// fails, at start or later, is reported once and replaced by the clock, so a
// WaitFrame never waits for ever.

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <QString>

#include "board/board_record.h"
#include "board/frame_event.h"
#include "board/output_sink.h"
#include "board/video_modes.h"

namespace orv {

// Who turns the playout loop.
enum class EPlayoutClock {
    THREAD,  // the playout thread, paced by the output
    HAND,    // the owner, one Tick at a time
    FREE,    // every WaitFrame turns it once, so nothing ever waits
};

struct UstOutputFailure {
    std::string strOutput;  // as FormatOutputChoice writes it
    std::string strReason;
};

struct UstPipelineSetup {
    UstOutputChoice output;
    // A card that does not answer is reported only when the card was asked
    // for by name; by default the clock stands in silently.
    bool bReportMissingCard = false;
    int nQueueFrames = 3;
};

class CDecklinkPipeline {
public:
    using FrameObserver =
        std::function<void(const uint32_t* frame, const CfgVideo& format, int keyLevel)>;
    using FailureListener = std::function<void(const UstOutputFailure&)>;

    CDecklinkPipeline() = default;
    ~CDecklinkPipeline();
    CDecklinkPipeline(const CDecklinkPipeline&) = delete;
    CDecklinkPipeline& operator=(const CDecklinkPipeline&) = delete;

    // Discovers the cards and their modes, builds the output for the
    // record's mode and starts the thread. The first card's name goes into
    // the record. 1 if the output chosen runs, 0 if the clock stands in.
    int Open(uint32_t* canvas, UstBoardRecord* record, const UstPipelineSetup& setup);
    // No discovery and no output: frames of the mode go to memory, turned
    // by the clock given (THREAD paces them in real time).
    int OpenWith(uint32_t* canvas, UstBoardRecord* record, EPlayoutClock clock);
    void Close();
    // Stop, build for the record as it is now, start.
    int Rebuild();
    // Takes effect at the next Rebuild.
    void SetSetup(const UstPipelineSetup& setup);
    UstPipelineSetup Setup() const;

    bool WaitFrame();
    bool WaitFrames();
    void SetOrigin(int x, int y);
    void GetOrigin(int& x, int& y) const;
    void SetKeyLevel(int level);
    int KeyLevel() const { return m_nKeyLevel.load(std::memory_order_relaxed); }
    // 1 unless the width is 1280, so every 1920-wide mode counts as interlaced.
    int IsInterlaced() const;
    // The first field's lines of the view into the field buffer.
    void CaptureField();
    // The same for the view rows from first to last - 1 (clipped to the
    // view): a writer that is done with those rows may take them while they
    // are still in its caches.
    void CaptureFieldRows(int first, int last);
    // Zeroes the view and, if interlaced, takes it as the held field too.
    void ClearView();
    // Held by every writer of the canvas and by the copy out of it. A
    // drawing thread may hold it across many primitives, each of which takes
    // it again: taken again by its holder, it costs no atomic operation.
    std::unique_lock<std::recursive_mutex> LockCanvas() { return std::unique_lock(m_canvasMutex); }

    // One turn of the playout loop, for the HAND clock.
    void Tick();
    CFrameEvent& SyncEvent() { return m_hSync; }

    // Called on the playout side with each frame as it leaves, before the
    // key gain of an output without keyer. Removing one waits until it is no
    // longer being called.
    int AddFrameObserver(FrameObserver observer);
    void RemoveFrameObserver(int id);
    void SetFailureListener(FailureListener listener);

    CfgVideo Format() const;
    int64_t Frames() const { return m_nFrames.load(); }
    // What takes the frames now, as FormatOutputChoice writes it.
    std::string RunningOutput() const;
    std::vector<UstOutputFailure> Failures() const;

    std::vector<QString> m_Devices;
    std::vector<CfgVideo> m_VideoModes;
    std::vector<CfgAudio> m_AudioModes;
    std::atomic<int32_t> m_bFullFrame{0};

private:
    void Discover();
    int Build();
    void Start();
    void Stop();
    void Run();
    void Fill(uint32_t* frame);
    void ReplaceByClock(const std::string& reason);
    void Report(const UstOutputFailure& failure);
    void InstallSink(std::unique_ptr<COutputSink> sink, const std::string& name);
    void InstallClock();
    std::unique_ptr<COutputSink> MakeSink(std::string& name, bool& missingCard);

    std::atomic<int64_t> m_nFrames{0};
    int32_t m_nReserved = 0;
    CfgVideo m_Format;  // under the canvas lock
    std::atomic<int32_t> m_nOriginX{0}, m_nOriginY{0};
    std::atomic<int32_t> m_nKeyLevel{255};
    uint32_t* m_pCanvas = nullptr;
    std::vector<uint32_t> m_FieldBuffer;  // under the canvas lock
    UstBoardRecord* m_pRecord = nullptr;
    UstPipelineSetup m_Setup;
    EPlayoutClock m_eClock = EPlayoutClock::THREAD;
    bool m_bForCard = false;  // Open rather than OpenWith

    CFrameEvent m_hSync;
    std::thread m_thread;
    std::atomic<bool> m_bStop{false};
    mutable std::recursive_mutex m_canvasMutex;
    std::mutex m_tickMutex;
    mutable std::mutex m_sinkMutex;  // the sink pointer, its name, the setup
    std::unique_ptr<COutputSink> m_pSink;
    std::string m_strSink;
    int m_nAppliedLevel = -1;  // playout side only
    bool m_bSinkKeys = true;

    mutable std::mutex m_listenMutex;
    std::vector<std::pair<int, FrameObserver>> m_observers;
    int m_nNextObserver = 1;
    FailureListener m_listener;
    std::vector<UstOutputFailure> m_failures;
};

}  // namespace orv
