#pragma once
// Writing ANI32 files, the format the system writes: the header is reserved
// first, frames follow in order, and the count, size and offset table go to
// the start at the end. Frames that were never written keep offset 0.

#include <QFile>
#include <QString>

#include <memory>
#include <vector>

namespace orv {

// Codes the block into the scratch (width * height * 8 bytes), then writes
// the coded size as 4 bytes and the coded bytes. 1, or 0 when the file did
// not take them all.
int EncodeAni32Frame(const uint32_t* block, uint8_t* scratch, int width, int height,
                     QIODevice& file);

class CAni32Writer {
public:
    // Creates the file with room for the header, its table and 8 reserved
    // zero bytes, and 256 bytes more, all zero. False when it cannot be
    // created or the sizes are not positive.
    bool Create(const QString& path, int count, int width, int height);
    // Writes frame index from a block of the file's size where the file
    // ends so far. False when the file refused it, or it would start past
    // what a 32-bit offset reaches.
    bool WriteFrame(int index, const uint32_t* block);
    // Writes the header and the offset table and closes the file.
    bool Finish();
    int FramesWritten() const { return m_nWritten; }

private:
    QFile m_file;
    std::vector<uint32_t> m_offsets;
    std::unique_ptr<uint8_t[]> m_pScratch;
    int m_nWidth = 0, m_nHeight = 0;
    int m_nWritten = 0;
};

}  // namespace orv
