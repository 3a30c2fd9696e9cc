#pragma once
// A clock, date, timer or counter on a page: a small settings record turned
// into one formatted value, laid out with one font and drawn with the whole
// look of a text, so that what the editor shows is what goes to air. The
// running value on air belongs to the play engine; the object only knows
// how to format a value and how to draw one.

#include <QString>

#include <array>
#include <cstdint>
#include <ctime>
#include <vector>

#include "objects/qrd_object.h"
#include "render/object_image.h"
#include "render/text_layout.h"
#include "render/text_records.h"

namespace orv {

#pragma pack(push, 1)

struct UstTCSetting {
    int32_t nKind;         // 0 timer or counter; anything else a clock
    int32_t nCountFormat;  // 0 to 7
    int32_t nClockFormat;  // 0 to 6
    int32_t nStart;        // seconds
    int32_t nEnd;          // seconds
    int32_t b24Hour;
};
static_assert(sizeof(UstTCSetting) == 24);

#pragma pack(pop)

constexpr int TC_COUNT_FORMATS = 8;
constexpr int TC_CLOCK_FORMATS = 7;

// The names a clock shows, in the interface's language.
struct UstClockNames {
    std::array<QString, 7> weekday;  // Sunday first, as struct tm counts
    QString am, pm;
};
// The names through the interface's translation: English where none is
// installed, whatever the system's own locale knows.
UstClockNames InterfaceClockNames();

// A clock's string for a given local time: the table's form, the 12-hour
// trimming, and a Korean weekday cut to its first syllable.
QString FormatClock(const UstTCSetting& setting, const std::tm& local, const UstClockNames& names);

// The value as the object shows it. A clock reads the system's local time
// and ignores the three numbers; a counter formats them.
QString FormatValue(const UstTCSetting& setting, int seconds, int minutes, int hours);

// A counter's string for a whole value in seconds: the value split into
// hours, minutes and seconds, a minus sign in front of a negative one.
QString CounterString(const UstTCSetting& setting, int64_t value);

// One character record a character of the value, with the look's face,
// metrics and body colour, measured without width or shear.
std::vector<UstCharAttr> TimerChars(const UstDefaultAttr& look, const QString& value);

// The value with face, edge, outline and shadow at full scale, placed on
// the page by the origin. Nothing is made for an empty value.
void RenderTimerValue(const UstDefaultAttr& look, float storeX, float storeY, const QString& value,
                      ObjectImage& out);

class CQRDObjectTC : public CQRDObject {
public:
    CQRDObjectTC() = default;
    // A new timer with the editor's default look at the stored origin.
    CQRDObjectTC(CPageContext* page, const UstDefaultAttr& attr, const UstTCSetting& setting,
                 float storeX, float storeY);

    int GetType() const override { return OBJ_TIMER; }
    int GetAngle() const override { return 0; }
    QString GetName() const override { return CurrentString(); }
    bool Execute(const void* args, uint32_t code) override;
    void Attach(CPageContext* page) override;
    void AfterLoad() override { Build(); }
    void OnZoom() override { Build(); }
    void ReleaseCache() override { m_image.Reset(); }
    UstRect GetInvalidRect() const override;
    void PickUpAttributes() override;
    void Draw() override;
    void DrawTo(uint32_t* bits, int width, int height) override;
    // A roll or crawl keeps the value drawn when its strips were made.
    void ResetLive(int32_t, int32_t) override { FreeLive(); }
    void FreeLive() override { m_liveImage.Reset(); }
    void PrepareScrollImage(int32_t width, int32_t height) override;
    void DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                  int bottom) override;
    UstPoint GetLiveExtent() const override;

    void Serialize(CByteWriter& out) const;
    bool Deserialize(CByteReader& in);
    const char* ArchiveClassName() const override { return "CQRDObjectTC"; }

    uint32_t GetStateSize() const override { return 4226; }
    void SaveState(CByteWriter& out) const override;
    bool LoadState(CByteReader& in, int flag) override;

    // The value from the settings: a counter shows its start.
    QString CurrentString() const;
    const std::vector<UstCharAttr>& Chars() const { return m_arrChar; }
    // New settings from the properties dialog; the value is built again.
    void SetSetting(const UstTCSetting& setting);

    float m_fStoreX = 0, m_fStoreY = 0;
    UstDefaultAttr m_attr{};
    UstTCSetting m_setting{};
    float m_fViewX = 0, m_fViewY = 0;
    float m_fScale = 1.0f;

private:
    // Characters from the current string and the one look, then the layout.
    void Build();
    void LayOut();
    void ReplaceMissingFace();
    bool ApplyLook(const void* args, uint32_t code);
    void FitToSize(const UstRect& to);

    std::vector<UstCharAttr> m_arrChar;
    UstTextLayout m_layout;
    ObjectImage m_image;      // the value at the zoom, for the canvas
    ObjectImage m_liveImage;  // the value at full scale, for a roll's run
};

}  // namespace orv
