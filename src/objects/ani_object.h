#pragma once
// An animation on a page: a file in the project's object folder. The editor
// shows its first frame scaled to the box and can play it through once on
// the canvas; on air the live machinery plays it over the page, so the
// object draws nothing into a play frame.

#include <QString>

#include <functional>
#include <memory>

#include "objects/qrd_object.h"
#include "render/object_image.h"

namespace orv {

class MediaPlayer;

#pragma pack(push, 1)

// The five words behind the file name, archived as one block.
struct UstAniWords {
    int32_t nFps;      // frames per second, shown and never edited
    int32_t nRepeat;   // how often it plays on air
    int32_t nWord3;    // kept
    uint32_t clrWord;  // a colour, kept
    int32_t nWord5;    // kept
};
static_assert(sizeof(UstAniWords) == 20);

#pragma pack(pop)

inline UstAniWords MakeDefaultAniWords() {
    return {30, 0, 0, 0xFF000000u, 255};
}

// "Animation properties": the play count, as an int32.
constexpr uint32_t CMD_ANIMATION_PROPERTIES = 40025;
// The canvas plays the selected animation through once.
constexpr uint32_t CMD_PREVIEW_ANIMATION = 40031;
constexpr int MAX_ANIMATION_REPEAT = 9999;

class CQRDObjectAni;

// What live playout needs of one animation: the file, its box in the frame
// and the object's words, whose repeat is the play count.
struct UstAniPlay {
    QString strFile;
    UstRect rcTarget;
    const UstAniWords* pWords = nullptr;
    const CQRDObjectAni* pObject = nullptr;
};

class CQRDObjectAni : public CQRDObject {
public:
    void RelinkMedia(const MediaRename& rename) override;
    CQRDObjectAni() = default;
    CQRDObjectAni(CPageContext* page, const QString& file, const UstRect& stored);
    ~CQRDObjectAni() override;

    int GetType() const override { return OBJ_ANIMATION; }
    int GetAngle() const override { return 0; }
    bool HasSizeHandles() const override { return false; }
    QString GetName() const override { return QStringLiteral("Animation"); }
    // An animation whose file has gone cannot come back: it leaves its page.
    // One whose file is there takes its still again if it has none.
    void AfterLoad() override;
    // On another page the still stays; only its scaled copy goes.
    void Attach(CPageContext* page) override;
    void ReleaseCache() override;
    void OnZoom() override;
    bool Execute(const void* args, uint32_t code) override;
    void Draw() override;
    // The still at full scale, for the page's thumbnail.
    void DrawTo(uint32_t* bits, int width, int height) override;
    void DrawForPlay(uint32_t*, int, int) override {}
    // A scroll page has no live stage: its animations go by as their still.
    void ResetLive(int32_t, int32_t) override { m_live.Reset(); }
    void FreeLive() override { m_live.Reset(); }
    void PrepareScrollImage(int32_t width, int32_t height) override;
    void DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                  int bottom) override;

    void Serialize(CByteWriter& out) const;
    bool Deserialize(CByteReader& in);
    const char* ArchiveClassName() const override { return "CQRDObjectAni"; }

    // The file joined to the page's object folder.
    QString FilePath() const;
    // Fills the play record with the box scaled to the frame; 0 when the
    // file is absent.
    int OpenAnimation(UstAniPlay& out, float scaleX, float scaleY) const;
    // Keeps a copy of the source's frame 0 as the still; false when that
    // frame cannot be read.
    bool TakeStillFrame(MediaPlayer& source);
    // Makes the scaled still again at the box's size.
    void ScaleStill();
    // Plays the file through once in the box on the canvas, as fast as the
    // frames decode, with the frame's number over each; flush shows a
    // rectangle of the canvas (window units) at once. False, with the
    // canvas untouched, when the file gives no source.
    bool PreviewAnimation(const std::function<void(const UstRect&)>& flush);

    bool HasStill() const { return m_pStill != nullptr; }
    const uint32_t* Still() const { return m_pStill.get(); }

    QString m_strFile;
    UstAniWords m_words = MakeDefaultAniWords();
    int32_t m_nStillWidth = 0, m_nStillHeight = 0;

protected:
    void SaveStateBody(CByteWriter& out) const override;
    bool LoadStateBody(CByteReader& in, int flag) override;

private:
    void FreeStill();
    void DrawPlaceholder(const UstRect& box);

    std::unique_ptr<uint32_t[]> m_pScaled;  // straight, at the box's size in view units
    int m_nScaledWidth = 0, m_nScaledHeight = 0;
    std::unique_ptr<uint32_t[]> m_pStill;  // straight, at the file's frame size
    ObjectImage m_live;                    // the still at the stored box, for a scroll run
};

}  // namespace orv
