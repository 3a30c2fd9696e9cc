#pragma once
// Little-endian byte cursors over flat buffers: the packed object state used
// by undo, the clipboard and group packing, and the heads of archived forms.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace orv {

class CByteWriter {
public:
    template <typename T>
    void Put(const T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        PutBytes(&value, sizeof value);
    }
    void PutBytes(const void* data, size_t size) {
        const auto* p = static_cast<const uint8_t*>(data);
        m_bytes.insert(m_bytes.end(), p, p + size);
    }
    const std::vector<uint8_t>& Bytes() const { return m_bytes; }
    size_t Size() const { return m_bytes.size(); }

private:
    std::vector<uint8_t> m_bytes;
};

// Reading past the end throws: a short buffer aborts the whole read, and the
// caller keeps what it had.
class CByteReader {
public:
    CByteReader(const void* data, size_t size)
        : m_begin(static_cast<const uint8_t*>(data)), m_p(m_begin), m_end(m_p + size) {}
    explicit CByteReader(const std::vector<uint8_t>& bytes)
        : CByteReader(bytes.data(), bytes.size()) {}

    template <typename T>
    T Get() {
        static_assert(std::is_trivially_copyable_v<T>);
        T value;
        GetBytes(&value, sizeof value);
        return value;
    }
    void GetBytes(void* out, size_t size) {
        if (static_cast<size_t>(m_end - m_p) < size) throw std::out_of_range("short buffer");
        if (size == 0) return;  // an empty destination may have no address
        std::memcpy(out, m_p, size);
        m_p += size;
    }
    size_t Remaining() const { return static_cast<size_t>(m_end - m_p); }
    // How far the reading has come, for messages that say where data broke.
    size_t Offset() const { return static_cast<size_t>(m_p - m_begin); }

private:
    const uint8_t* m_begin;
    const uint8_t* m_p;
    const uint8_t* m_end;
};

}  // namespace orv
