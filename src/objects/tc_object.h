#pragma once
// A clock, date, timer or counter on a page: a small settings record turned
// into one formatted value, laid out with one font. It paints nothing on the
// page or on air; on the canvas only its handles show where it stands.

#include <QString>

#include <vector>

#include "objects/qrd_object.h"
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

// The value as the object shows it. A clock reads the system's local time
// and ignores the three numbers; a counter formats them.
QString FormatValue(const UstTCSetting& setting, int seconds, int minutes, int hours);

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

    void Serialize(CByteWriter& out) const;
    bool Deserialize(CByteReader& in);
    const char* ArchiveClassName() const override { return "CQRDObjectTC"; }

    uint32_t GetStateSize() const override { return 4226; }
    void SaveState(CByteWriter& out) const override;
    bool LoadState(CByteReader& in, int flag) override;

    // The value from the settings: a counter shows its start.
    QString CurrentString() const;
    const std::vector<UstCharAttr>& Chars() const { return m_arrChar; }

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
    bool ApplyStyle(const UstText& style);

    std::vector<UstCharAttr> m_arrChar;
    UstTextLayout m_layout;
};

}  // namespace orv
