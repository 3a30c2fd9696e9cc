#pragma once
// A look at an animation file's header and frame records without decoding
// anything, for reports on the command line.

#include <QString>

#include <cstdint>
#include <vector>

namespace orv {

enum class EFrameRecord {
    GOOD,
    SKIPPED,    // offset 0: a frame a conversion left out
    IN_HEADER,  // the offset points into the header or its table
    PAST_END,   // the record starts past the file's end
    CUT_SHORT,  // the record's coded bytes run past the file's end
    OVERLAPS    // the record starts inside another one
};

struct UstAniFileCheck {
    bool bReadable = false;  // header and offset table lie inside the file
    int nType = 0;           // EMediaType
    uint32_t nFrames = 0, nWidth = 0, nHeight = 0;
    uint64_t nFileSize = 0;
    std::vector<EFrameRecord> records;
};

// For ANI32 and QRDANI files, by extension; bReadable false for others.
UstAniFileCheck CheckAnimationFile(const QString& file);
const char* FrameRecordText(EFrameRecord record);

}  // namespace orv
