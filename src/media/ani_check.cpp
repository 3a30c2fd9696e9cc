#include "media/ani_check.h"

#include <QFile>

#include <algorithm>
#include <numeric>

#include "media/ani32_codec.h"
#include "media/media_factory.h"
#include "media/media_file.h"

namespace orv {

namespace {

struct UstRecordSpan {
    uint64_t start, end;
    size_t index;
};

void MarkOverlaps(std::vector<UstRecordSpan>& spans, std::vector<EFrameRecord>& records) {
    std::sort(spans.begin(), spans.end(),
              [](const UstRecordSpan& a, const UstRecordSpan& b) { return a.start < b.start; });
    uint64_t start = 0, end = 0;
    for (const UstRecordSpan& s : spans) {
        // Frames that share one record are not an overlap.
        if (s.start < end && s.start != start) records[s.index] = EFrameRecord::OVERLAPS;
        if (s.start != start || s.end > end) {
            start = s.start;
            end = std::max(end, s.end);
        }
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
            spans.push_back({offsets[i], offsets[i] + fields * 4 + field[fields - 1], i});
    }
    MarkOverlaps(spans, check.records);
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
