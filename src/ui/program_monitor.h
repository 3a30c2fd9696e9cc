#pragma once
// The program monitor: what the output sends, over a checkerboard, a colour
// or a picture chosen by the operator, so that without a card one still sees
// what air would show. It takes each frame from the playout side without
// ever holding that side up, and shows the newest one at its own pace.

#include <QColor>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace orv {

class CDecklinkPipeline;

class CProgramMonitor : public QWidget {
    Q_OBJECT
public:
    enum EBackground { BACK_CHECKER, BACK_COLOUR, BACK_PICTURE };

    CProgramMonitor(CDecklinkPipeline* pipeline, QWidget* parent = nullptr);
    ~CProgramMonitor() override;

    void SetBackground(EBackground kind, QColor colour = {}, const QString& picture = {});
    EBackground Background() const { return m_eBackground; }
    // Takes the newest frame, if a new one came; true if it did.
    bool TakeFrame();
    // The last frame taken, keyed over the background at the frame's size.
    QImage Composed() const;
    // A frame as air shows it over the background: the key level scales the
    // premultiplied frame as the keyer does.
    static QImage Compose(const QImage& frame, int keyLevel, const QImage& background);

Q_SIGNALS:
    void Hidden();

protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct UstShared {
        std::mutex mutex;
        std::vector<uint32_t> frame;
        int nWidth = 0, nHeight = 0, nLevel = 255;
        uint64_t nSequence = 0;
    };
    QImage BackgroundFor(QSize size) const;
    void ChooseColour();
    void ChoosePicture();
    void SaveBackground() const;

    CDecklinkPipeline* m_pPipeline;
    int m_nObserver = 0;
    std::shared_ptr<UstShared> m_shared = std::make_shared<UstShared>();
    uint64_t m_nShown = 0;
    QImage m_frame;
    int m_nLevel = 255;
    EBackground m_eBackground = BACK_CHECKER;
    QColor m_colour = Qt::black;
    QImage m_picture;
    QString m_strPicture;
    QTimer m_timer;
};

}  // namespace orv
