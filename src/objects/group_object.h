#pragma once
// Objects bound together, so that they are selected, moved and played as
// one. A group has no look of its own: it hands nearly every operation to
// its members in their order. A group may hold another group.

#include <functional>
#include <memory>
#include <vector>

#include "objects/qrd_object.h"

namespace orv {

constexpr uint32_t CMD_GROUP = 209;
constexpr uint32_t CMD_UNGROUP = 210;

class CQRDObjectGroup : public CQRDObject {
public:
    void RelinkMedia(const MediaRename& rename) override;
    CQRDObjectGroup() = default;
    explicit CQRDObjectGroup(CPageContext* page) : CQRDObject(page) {}
    ~CQRDObjectGroup() override;

    int GetType() const override { return OBJ_GROUP; }
    QString GetName() const override { return QStringLiteral("Group"); }
    int GetAngle() const override { return 0; }
    bool HasSizeHandles() const override { return false; }
    bool EndEdit() override;
    bool HitTest(int x, int y) const override;
    UstRect GetInvalidRect() const override;
    void Attach(CPageContext* page) override;
    void AfterLoad() override;
    void ReleaseCache() override;
    bool Execute(const void* args, uint32_t code) override;
    void RecalcHandles() override;
    void Draw() override;
    void DrawTo(uint32_t* bits, int width, int height) override;
    void DrawBlinkMark() override;
    void DrawTypingMark() override;
    void DrawForPlay(uint32_t* bits, int width, int height) override;
    void UpdateStored(bool keepSize) override;
    void OnZoom() override;
    void SaveStateDeep(CByteWriter& out) const override;
    bool LoadStateDeep(CByteReader& in) override;
    void PrepareBlinkFrame(uint32_t* bits, int width, int height, int mode,
                           uint32_t colour) override;
    void ResetLive(int32_t a, int32_t b) override;
    void FreeLive() override;
    void PrepareScrollImage(int32_t w, int32_t h) override;
    void PrepareLiveFrame(int a, int b, int c, int d) override;
    void DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                  int bottom) override;
    UstPoint GetLiveExtent() const override;

    // Members join at the end of the drawing order.
    void AddMember(std::unique_ptr<CQRDObject> member);
    // Unlinks a member from both lists without deleting it.
    std::unique_ptr<CQRDObject> RemoveMember(CQRDObject* member);
    // Every member, in order, leaving the group empty.
    std::vector<std::unique_ptr<CQRDObject>> TakeMembers();
    const std::vector<std::unique_ptr<CQRDObject>>& Members() const { return m_listChild; }
    // The group's rectangle: the union of its members' bounds.
    void RebuildRect();

    // The file form. Members are objects of the file in their own right, so
    // the archive that writes the group writes them, through the callback.
    using MemberWriter = std::function<void(CByteWriter&, const CQRDObject&)>;
    using MemberReader = std::function<std::unique_ptr<CQRDObject>(CByteReader&)>;
    void Serialize(CByteWriter& out, const MemberWriter& writeMember) const;
    bool Deserialize(CByteReader& in, const MemberReader& readMember);
    const char* ArchiveClassName() const override { return "CQRDObjectGroup"; }

    // The members in drawing order, and a second list that, when it has
    // entries, is the order in which moves reach them.
    std::vector<std::unique_ptr<CQRDObject>> m_listChild;
    std::vector<CQRDObject*> m_listOrder;

protected:
    void SaveStateHeader(CByteWriter& out) const override;
    bool LoadStateHeader(CByteReader& in) override;
    void SaveStateBody(CByteWriter& out) const override;
    bool LoadStateBody(CByteReader& in, int flag) override;

private:
    void SaveMembers(CByteWriter& out, bool deep) const;
    bool LoadMembers(CByteReader& in, int flag, bool deep);
    bool MoveBy(int dx, int dy);
    uint32_t m_nLoadCount = 0;  // members announced by a state header
};

}  // namespace orv
