#include "media/ani32_writer.h"

#include <new>

#include "media/ani32_codec.h"

namespace orv {

int EncodeAni32Frame(const uint32_t* block, uint8_t* scratch, int width, int height,
                     QIODevice& file) {
    const size_t size = EncodeAni32Rows(block, width, height, scratch);
    const auto coded = static_cast<uint32_t>(size);
    if (file.write(reinterpret_cast<const char*>(&coded), 4) != 4) return 0;
    return file.write(reinterpret_cast<const char*>(scratch), static_cast<qint64>(size)) ==
                   static_cast<qint64>(size)
               ? 1
               : 0;
}

bool CAni32Writer::Create(const QString& path, int count, int width, int height) {
    if (count <= 0 || width <= 0 || height <= 0 || static_cast<uint32_t>(width) > MAX_ANI_EXTENT ||
        static_cast<uint32_t>(height) > MAX_ANI_EXTENT)
        return false;
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    const qint64 header = qint64{count} * 4 + 20;
    m_pScratch.reset(new (std::nothrow) uint8_t[static_cast<size_t>(width) * height * 8]);
    if (!m_pScratch || !m_file.resize(header + 256) || !m_file.seek(header)) {
        m_file.close();
        return false;
    }
    m_offsets.assign(static_cast<size_t>(count), 0);
    m_nWidth = width;
    m_nHeight = height;
    m_nWritten = 0;
    return true;
}

bool CAni32Writer::WriteFrame(int index, const uint32_t* block) {
    if (!m_file.isOpen() || index < 0 || static_cast<size_t>(index) >= m_offsets.size())
        return false;
    const qint64 position = m_file.pos();
    if (position > qint64{UINT32_MAX}) return false;
    if (!EncodeAni32Frame(block, m_pScratch.get(), m_nWidth, m_nHeight, m_file)) {
        m_file.seek(position);
        return false;
    }
    m_offsets[static_cast<size_t>(index)] = static_cast<uint32_t>(position);
    ++m_nWritten;
    return true;
}

bool CAni32Writer::Finish() {
    if (!m_file.isOpen()) return false;
    const UstAniFileHeader head{static_cast<uint32_t>(m_offsets.size()),
                                static_cast<uint32_t>(m_nWidth), static_cast<uint32_t>(m_nHeight)};
    const auto table = static_cast<qint64>(m_offsets.size() * 4);
    const bool ok =
        m_file.seek(0) &&
        m_file.write(reinterpret_cast<const char*>(&head), sizeof head) == sizeof head &&
        m_file.write(reinterpret_cast<const char*>(m_offsets.data()), table) == table &&
        m_file.flush();
    m_file.close();
    m_pScratch.reset();
    return ok;
}

}  // namespace orv
