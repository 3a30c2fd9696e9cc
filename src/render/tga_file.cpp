#include "render/tga_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace orv {

namespace {

class CReader {
public:
    CReader(const uint8_t* data, size_t size) : m_p(data), m_end(data + size) {}
    bool Take(void* out, size_t n) {
        if (static_cast<size_t>(m_end - m_p) < n) return false;
        std::memcpy(out, m_p, n);
        m_p += n;
        return true;
    }
    size_t Remaining() const { return static_cast<size_t>(m_end - m_p); }
    bool Skip(size_t n) {
        if (static_cast<size_t>(m_end - m_p) < n) return false;
        m_p += n;
        return true;
    }

private:
    const uint8_t* m_p;
    const uint8_t* m_end;
};

uint32_t Convert(const uint8_t* b, int bytes) {
    if (bytes == 4) return b[0] | b[1] << 8 | b[2] << 16 | static_cast<uint32_t>(b[3]) << 24;
    if (bytes == 3) return b[0] | b[1] << 8 | b[2] << 16 | 0xFF000000u;
    const uint32_t l = b[0], u = b[1];
    const uint32_t red = ((u & 252) * 2) & 255;
    const uint32_t green = ((l >> 2) & 56) | ((u & 3) * 64);
    const uint32_t blue = (l * 8) & 255;
    return blue | green << 8 | red << 16 | 0xFF000000u;
}

bool Accepted(const UstTgaHeader& h) {
    return (h.imageType == 2 || h.imageType == 10) &&
           (h.bitsPerPixel == 16 || h.bitsPerPixel == 24 || h.bitsPerPixel == 32) &&
           h.colourMapType <= 1 && h.width > 0 && h.height > 0 && h.width <= MAX_IMAGE_EXTENT &&
           h.height <= MAX_IMAGE_EXTENT;
}

bool ReadHeader(CReader& in, UstTgaHeader& h) {
    return in.Take(&h, sizeof h) && Accepted(h);
}

bool ReadPixels(CReader& in, const UstTgaHeader& h, uint32_t* px, size_t count) {
    const int bytes = h.bitsPerPixel / 8;
    uint8_t b[4];
    if (h.imageType == 2) {
        if (bytes == 4) return in.Take(px, count * 4);
        for (size_t i = 0; i < count; ++i) {
            if (!in.Take(b, static_cast<size_t>(bytes))) return false;
            px[i] = Convert(b, bytes);
        }
        return true;
    }
    size_t i = 0;
    while (i < count) {
        uint8_t packet = 0;
        if (!in.Take(&packet, 1) || !in.Take(b, static_cast<size_t>(bytes))) return false;
        const size_t n = packet & 127;
        if (i + 1 + n > count) return false;  // a run past the picture: damaged
        px[i++] = Convert(b, bytes);
        for (size_t k = 0; k < n; ++k) {
            if (packet < 128 && !in.Take(b, static_cast<size_t>(bytes))) return false;
            px[i++] = Convert(b, bytes);
        }
    }
    return true;
}

void Orient(uint32_t* px, int w, int h, uint8_t descriptor) {
    const bool top = descriptor & 32, right = descriptor & 16;
    const size_t n = static_cast<size_t>(w) * h;
    auto swapRows = [&] {
        for (int y = 0; y < h / 2; ++y)
            std::swap_ranges(px + static_cast<size_t>(y) * w, px + static_cast<size_t>(y + 1) * w,
                             px + static_cast<size_t>(h - 1 - y) * w);
    };
    if (top && !right) return;
    if (top && right) {
        for (int y = 0; y < h; ++y)
            std::reverse(px + static_cast<size_t>(y) * w, px + static_cast<size_t>(y + 1) * w);
    } else if (right) {
        std::reverse(px, px + n);
    } else {
        swapRows();
    }
}

}  // namespace

UstPixelImage ReadTgaMemory(const uint8_t* data, size_t size) {
    CReader in(data, size);
    UstTgaHeader h;
    if (!data || !ReadHeader(in, h)) return {};
    // The colour map is skipped one byte an entry, whatever its entry size.
    if (!in.Skip(h.idLength + static_cast<size_t>(h.colourMapType) * h.colourMapLength)) return {};
    const size_t count = static_cast<size_t>(h.width) * h.height;
    // Refuse before allocating when the data cannot hold the picture: a raw
    // file needs every pixel, a run-length one a packet per 128 pixels.
    const size_t bytes = h.bitsPerPixel / 8;
    const size_t least = h.imageType == 2 ? count * bytes : (count + 127) / 128 * (bytes + 1);
    if (in.Remaining() < least) return {};
    UstPixelImage image;
    image.bits.reset(new (std::nothrow) uint32_t[count]());
    if (!image.bits || !ReadPixels(in, h, image.bits.get(), count)) return {};
    image.width = h.width;
    image.height = h.height;
    Orient(image.bits.get(), image.width, image.height, h.descriptor);
    return image;
}

UstPixelImage ReadTga(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return {};
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    // The largest honest file: a header, an id, a full colour map and every
    // pixel in a packet of its own.
    const std::streamoff most =
        18 + 255 + 65535 + static_cast<std::streamoff>(MAX_IMAGE_EXTENT) * MAX_IMAGE_EXTENT * 5;
    if (size <= 0 || size > most) return {};
    in.seekg(0);
    std::vector<uint8_t> bytes(static_cast<size_t>(size));
    if (!in.read(reinterpret_cast<char*>(bytes.data()), size)) return {};
    return ReadTgaMemory(bytes.data(), bytes.size());
}

bool ReadTgaSize(const std::string& file, int& width, int& height) {
    width = height = 0;
    std::ifstream in(file, std::ios::binary);
    UstTgaHeader h;
    if (!in.read(reinterpret_cast<char*>(&h), sizeof h) || !Accepted(h)) return false;
    width = h.width;
    height = h.height;
    return true;
}

int WriteTga32(const uint32_t* bits, int width, int height, const std::string& file) {
    if (!bits || width <= 0 || height <= 0 || width > 65535 || height > 65535) return 0;
    UstTgaHeader h{};
    h.imageType = 2;
    h.width = static_cast<uint16_t>(width);
    h.height = static_cast<uint16_t>(height);
    h.bitsPerPixel = 32;
    h.descriptor = 32;
    const std::string temp = file + ".part";
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(&h), sizeof h);
        out.write(reinterpret_cast<const char*>(bits),
                  static_cast<std::streamsize>(width) * height * 4);
        out.flush();
        if (!out) {
            out.close();
            std::remove(temp.c_str());
            return 0;
        }
    }
    if (std::rename(temp.c_str(), file.c_str()) != 0) {
        std::remove(temp.c_str());
        return 0;
    }
    return 1;
}

}  // namespace orv
