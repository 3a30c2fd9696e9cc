#include "media/ani_check.h"

#include <QFile>

#include <algorithm>

#include "media/ani32_codec.h"
#include "media/media_factory.h"
#include "media/media_file.h"

namespace orv {

namespace {

struct UstRecordSpan {
    uint64_t start, end;
};

// A record that starts inside a whole record before it. Frames that share
// one record start at the same place, which is no overlap.
void MarkOverlaps(const std::vector<uint32_t>& offsets, std::vector<UstRecordSpan> whole,
                  std::vector<EFrameRecord>& records) {
    std::sort(whole.begin(), whole.end(),
              [](const UstRecordSpan& a, const UstRecordSpan& b) { return a.start < b.start; });
    std::vector<uint64_t> reach(whole.size());
    for (size_t i = 0; i < whole.size(); ++i)
        reach[i] = std::max(whole[i].end, i ? reach[i - 1] : 0);
    for (size_t i = 0; i < offsets.size(); ++i) {
        if (records[i] != EFrameRecord::GOOD && records[i] != EFrameRecord::CUT_SHORT) continue;
        const auto before = std::lower_bound(
            whole.begin(), whole.end(), uint64_t{offsets[i]},
            [](const UstRecordSpan& s, uint64_t start) { return s.start < start; });
        if (before != whole.begin() &&
            reach[static_cast<size_t>(before - whole.begin()) - 1] > offsets[i])
            records[i] = EFrameRecord::OVERLAPS;
    }
}

}  // namespace

UstAniFileCheck CheckAnimationFile(const QString& file) {
    UstAniFileCheck check;
    check.nType = GetMediaType(file);
    if (check.nType != MEDIA_ANI32 && check.nType != MEDIA_QRDANI) return check;
    const CMediaFile bytes(QFile::encodeName(file).toStdString());
    check.nFileSize = bytes.Size();
    UstAniFileHeader head{};
    if (!bytes.ReadExact(0, &head, sizeof head)) return check;
    check.nFrames = head.nFrames;
    check.nWidth = head.nWidth;
    check.nHeight = head.nHeight;
    const uint64_t tableEnd = sizeof head + uint64_t{head.nFrames} * 4;
    if (tableEnd > bytes.Size()) return check;
    std::vector<uint32_t> offsets(head.nFrames);
    if (!bytes.ReadExact(sizeof head, offsets.data(), offsets.size() * 4)) return check;
    check.bReadable = true;
    const size_t fields = check.nType == MEDIA_ANI32 ? 1 : 2;
    check.records.assign(offsets.size(), EFrameRecord::GOOD);
    std::vector<UstRecordSpan> spans;
    for (size_t i = 0; i < offsets.size(); ++i) {
        uint32_t field[2] = {0, 0};
        EFrameRecord& r = check.records[i];
        if (offsets[i] == 0)
            r = EFrameRecord::SKIPPED;
        else if (offsets[i] < tableEnd)
            r = EFrameRecord::IN_HEADER;
        else if (!bytes.ReadExact(offsets[i], field, fields * 4))
            r = EFrameRecord::PAST_END;
        else if (offsets[i] + fields * 4 + field[fields - 1] > bytes.Size())
            r = EFrameRecord::CUT_SHORT;
        if (r == EFrameRecord::GOOD)
            spans.push_back({offsets[i], offsets[i] + fields * 4 + field[fields - 1]});
    }
    MarkOverlaps(offsets, std::move(spans), check.records);
    return check;
}

const char* FrameRecordText(EFrameRecord record) {
    switch (record) {
        case EFrameRecord::GOOD:
            return "good";
        case EFrameRecord::SKIPPED:
            return "skipped (offset 0)";
        case EFrameRecord::IN_HEADER:
            return "points into the header";
        case EFrameRecord::PAST_END:
            return "points past the end of the file";
        case EFrameRecord::CUT_SHORT:
            return "runs past the end of the file";
        case EFrameRecord::OVERLAPS:
            return "overlaps another frame";
    }
    return "";
}

}  // namespace orv
