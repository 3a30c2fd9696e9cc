#pragma once
// An animation on a page: a file in the project's object folder, shown in
// the editor as a box and played on air by the live machinery. Until frame
// sources exist the box stays a plain outline and air shows nothing of it.

#include <QString>

#include "objects/qrd_object.h"

namespace orv {

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

class CQRDObjectAni : public CQRDObject {
public:
    CQRDObjectAni() = default;
    CQRDObjectAni(CPageContext* page, const QString& file, const UstRect& stored);

    int GetType() const override { return OBJ_ANIMATION; }
    int GetAngle() const override { return 0; }
    bool HasSizeHandles() const override { return false; }
    QString GetName() const override { return QStringLiteral("Animation"); }
    // An animation whose file has gone cannot come back: it leaves its page.
    void AfterLoad() override;
    void Draw() override;

    void Serialize(CByteWriter& out) const;
    bool Deserialize(CByteReader& in);
    const char* ArchiveClassName() const override { return "CQRDObjectAni"; }

    // The file joined to the page's object folder.
    QString FilePath() const;

    QString m_strFile;
    UstAniWords m_words = MakeDefaultAniWords();

protected:
    void SaveStateBody(CByteWriter& out) const override;
    bool LoadStateBody(CByteReader& in, int flag) override;
};

}  // namespace orv
