#pragma once
// A QRDANI encoder for the benchmark's sample file. The system only reads
// the format; this writes frames exactly as its reader expects them.

#include <array>
#include <cstdint>
#include <queue>
#include <vector>

#include "media/qrdani_codec.h"

namespace orv::bench {

using Bytes = std::vector<uint8_t>;

// Code lengths of a Huffman code for the byte counts; 0 for absent bytes.
inline std::array<uint8_t, 256> HuffmanLengths(const std::array<uint64_t, 256>& counts) {
    struct Node {
        uint64_t weight;
        int left, right;
    };
    std::vector<Node> nodes;
    using Item = std::pair<uint64_t, int>;
    std::priority_queue<Item, std::vector<Item>, std::greater<>> queue;
    for (int s = 0; s < 256; ++s)
        if (counts[static_cast<size_t>(s)]) {
            nodes.push_back({counts[static_cast<size_t>(s)], -1, s});
            queue.push({counts[static_cast<size_t>(s)], static_cast<int>(nodes.size()) - 1});
        }
    std::array<uint8_t, 256> lengths{};
    if (nodes.size() == 1) lengths[static_cast<size_t>(nodes[0].right)] = 1;
    while (queue.size() > 1) {
        const Item a = queue.top();
        queue.pop();
        const Item b = queue.top();
        queue.pop();
        nodes.push_back({a.first + b.first, a.second, b.second});
        queue.push({a.first + b.first, static_cast<int>(nodes.size()) - 1});
    }
    // Depth of each leaf, walking down from the root.
    std::vector<std::pair<int, int>> stack;
    if (nodes.size() > 1) stack.push_back({static_cast<int>(nodes.size()) - 1, 0});
    while (!stack.empty()) {
        const auto [n, depth] = stack.back();
        stack.pop_back();
        const Node& node = nodes[static_cast<size_t>(n)];
        if (node.left < 0) {
            lengths[static_cast<size_t>(node.right)] = static_cast<uint8_t>(depth);
            continue;
        }
        stack.push_back({node.left, depth + 1});
        stack.push_back({node.right, depth + 1});
    }
    return lengths;
}

// The packed table: numbers of nibbles with base escapes, and a repeat
// count after a value's third appearance in a row.
inline Bytes PackLengths(const std::array<uint8_t, 256>& lengths) {
    std::vector<int> units;
    int base = 0;
    auto number = [&](int v) {
        if (v < base || v - base > 12) {
            base = v < 13 ? 0 : (v < 26 ? 13 : 26);
            units.push_back(base == 0 ? 13 : (base == 13 ? 14 : 15));
        }
        units.push_back(v - base);
    };
    int previous = 0, repeats = 0;
    for (int i = 0; i < 256;) {
        const int v = lengths[static_cast<size_t>(i)];
        number(v);
        repeats = v == previous ? repeats + 1 : 0;
        previous = v;
        ++i;
        if (repeats > 1) {
            int copies = 0;
            while (i + copies < 256 && copies < 41 && lengths[static_cast<size_t>(i + copies)] == v)
                ++copies;
            number(copies);
            i += copies;
            repeats = 0;
        }
    }
    Bytes out((units.size() + 1) / 2, 0);
    for (size_t k = 0; k < units.size(); ++k)
        out[k / 2] |= static_cast<uint8_t>(k % 2 ? units[k] : units[k] << 4);
    return out;
}

// One frame record: half size, coded size, table and bits.
inline Bytes EncodeRecord(const uint8_t* data, size_t size, CQrdHuffman& code) {
    std::array<uint64_t, 256> counts{};
    for (size_t i = 0; i < size; ++i)
        ++counts[data[i]];
    const std::array<uint8_t, 256> lengths = HuffmanLengths(counts);
    code.Build(lengths.data());
    Bytes bits = PackLengths(lengths);
    uint64_t acc = 0;
    int filled = 0;
    for (size_t i = 0; i < size; ++i) {
        const int len = code.LengthOf(data[i]);
        acc = (acc << len) | code.CodeOf(data[i]);
        filled += len;
        while (filled >= 8) {
            filled -= 8;
            bits.push_back(static_cast<uint8_t>(acc >> filled));
        }
    }
    if (filled) bits.push_back(static_cast<uint8_t>(acc << (8 - filled)));
    Bytes record;
    record.reserve(bits.size() + 8);
    for (const auto field : {static_cast<uint32_t>(size / 2), static_cast<uint32_t>(bits.size())})
        for (int i = 0; i < 4; ++i)
            record.push_back(static_cast<uint8_t>(field >> (8 * i)));
    record.insert(record.end(), bits.begin(), bits.end());
    return record;
}

}  // namespace orv::bench
