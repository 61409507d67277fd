// SPDX-License-Identifier: GPL-3.0-or-later
// The imaging operations by their definitions, loop by loop, without regard to speed: the reference with which tests
// and benchmarks compare the library.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/modPaletteEntry.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <random>
#include <stdexcept>
#include <vector>

namespace plain {

using Byte = std::uint8_t;

struct SubscriptError : std::runtime_error {
    SubscriptError() : std::runtime_error("Subscript out of range") {}
};

inline int RoundHalfEven(double value)
{
    return static_cast<int>(std::nearbyint(value));
}

// Bytes of a picture by offset in the line and line; every access is checked.
struct Picture {
    int width = 0;
    int height = 0;
    int bytesPerScanLine = 0;
    std::vector<Byte> bytes;

    Picture() = default;
    Picture(int pictureWidth, int pictureHeight)
        : width(pictureWidth), height(pictureHeight), bytesPerScanLine((pictureWidth * 3 + 3) & ~3),
          bytes(static_cast<std::size_t>(bytesPerScanLine) * static_cast<std::size_t>(pictureHeight))
    {
    }
    Byte& At(int x, int y)
    {
        if (x < 0 || y < 0 || x >= bytesPerScanLine || y >= height)
            throw SubscriptError();
        return bytes[static_cast<std::size_t>(y) * static_cast<std::size_t>(bytesPerScanLine) +
                     static_cast<std::size_t>(x)];
    }
    int XEnd() const { return (width - 1) * 3; }
};

inline Picture Of(const ob::cDIBSection& section)
{
    Picture picture(section.Width(), section.Height());
    std::memcpy(picture.bytes.data(), section.DIBSectionBitsPtr(), picture.bytes.size());
    return picture;
}

inline ob::cDIBSection SectionOf(const Picture& picture)
{
    ob::cDIBSection section;
    section.Create(picture.width, picture.height);
    std::memcpy(section.DIBSectionBitsPtr(), picture.bytes.data(), picture.bytes.size());
    return section;
}

// --- Scaling. ---

inline Picture Resample(Picture source, int newHeight, int newWidth)
{
    if (newWidth == source.width && newHeight == source.height)
        return source;
    Picture target(newWidth, newHeight);
    const float xScale = static_cast<float>((source.width - 1) / static_cast<double>(newWidth));
    const float yScale = static_cast<float>((source.height - 1) / static_cast<double>(newHeight));
    for (int y = 0; y < newHeight; ++y) {
        const float fy0 = static_cast<float>(y * static_cast<double>(yScale));
        const int iy = static_cast<int>(std::floor(fy0));
        const double fy = static_cast<float>(fy0 - static_cast<float>(iy));
        for (int x = 0; x < newWidth; ++x) {
            const float fx0 = static_cast<float>(x * static_cast<double>(xScale));
            const int ix = static_cast<int>(std::floor(fx0));
            const double fx = static_cast<float>(fx0 - static_cast<float>(ix));
            for (int channel = 0; channel < 3; ++channel) {
                const int offset = ix * 3 + channel;
                const int left = RoundHalfEven((1 - fy) * source.At(offset, iy) + fy * source.At(offset, iy + 1));
                const int right =
                    RoundHalfEven((1 - fy) * source.At(offset + 3, iy) + fy * source.At(offset + 3, iy + 1));
                int result = RoundHalfEven((1 - fx) * left + fx * right);
                result = result < 0 ? 0 : result > 255 ? 255 : result;
                target.At(x * 3 + channel, y) = static_cast<Byte>(result);
            }
        }
    }
    return target;
}

// --- Palettes. ---

using Entries = std::vector<ob::PaletteEntry>; // the entry of index i is at i - 1

inline int ClosestIndex(const Entries& entries, int red, int green, int blue)
{
    int best = 0;
    int bestRed = 255;
    int bestGreen = 255;
    int bestBlue = 255;
    for (int i = 1; i <= static_cast<int>(entries.size()); ++i) {
        const ob::PaletteEntry& entry = entries[static_cast<std::size_t>(i) - 1];
        if (entry.red == red && entry.green == green && entry.blue == blue)
            return i;
        const int dR = std::abs(entry.red - red);
        const int dG = std::abs(entry.green - green);
        const int dB = std::abs(entry.blue - blue);
        if (dR + dG + dB < bestRed + bestGreen + bestBlue) {
            best = i;
            bestRed = dR;
            bestGreen = dG;
            bestBlue = dB;
        }
    }
    return best;
}

class Octree {
public:
    std::int64_t failures = 0;
    std::vector<std::int32_t> progress;

    Entries CreateOptimal(Picture& picture, int wanted, int level)
    {
        maximumLevel = level;
        nodes.assign(51, Node{});
        nodeCount = 1;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x <= picture.XEnd(); ++x) {
                AddColour(1, 1, 0, 255, 0, 255, 0, 255, picture.At(x + 2, y), picture.At(x + 1, y), picture.At(x, y));
                while (leafCount > wanted) {
                    if (!ReduceNode()) {
                        ++failures;
                        break;
                    }
                }
            }
            progress.push_back(y);
        }
        Entries entries;
        for (std::size_t i = 1; i < nodes.size(); ++i) {
            const Node& node = nodes[i];
            if (!node.leaf)
                continue;
            entries.push_back(
                {Mean(node.red, node.pixels), Mean(node.green, node.pixels), Mean(node.blue, node.pixels), 0});
            progress.push_back(static_cast<std::int32_t>(i));
        }
        return entries;
    }

private:
    struct Node {
        bool leaf = false;
        bool marked = false;
        std::int64_t red = 0;
        std::int64_t green = 0;
        std::int64_t blue = 0;
        std::int64_t pixels = 0;
        std::array<std::int32_t, 8> children = {};
        std::int32_t next = 0;
    };

    static Byte Mean(std::int64_t sum, std::int64_t count)
    {
        return static_cast<Byte>(std::nearbyint(static_cast<long double>(sum) / static_cast<long double>(count)));
    }

    static int Halve(int value, int& low, int& high)
    {
        const int mid = RoundHalfEven(low / 2.0 + high / 2.0);
        if (value <= mid) {
            high = mid;
            return 0;
        }
        low = mid;
        return 1;
    }

    void AddColour(std::int32_t node, int level, int redLow, int redHigh, int greenLow, int greenHigh, int blueLow,
                   int blueHigh, int red, int green, int blue)
    {
        const int redBit = Halve(red, redLow, redHigh);
        const int greenBit = Halve(green, greenLow, greenHigh);
        const int blueBit = Halve(blue, blueLow, blueHigh);
        const auto flat = static_cast<std::size_t>(redBit + 2 * greenBit + 4 * blueBit);
        std::int32_t child = At(node).children[flat];
        if (child == 0) {
            child = NewNode();
            At(node).children[flat] = child;
            ++At(node).pixels;
            At(child).leaf = level == maximumLevel;
            At(child).marked = false;
            At(child).red = At(child).green = At(child).blue = At(child).pixels = 0;
            At(child).next = 0;
        }
        Node& record = At(child);
        if (record.leaf) {
            if (record.pixels == 0)
                ++leafCount;
            ++record.pixels;
            record.red += red;
            record.green += green;
            record.blue += blue;
            return;
        }
        if (!record.marked) {
            record.next = Head(level);
            Head(level) = child;
            record.marked = true;
        }
        AddColour(child, level + 1, redLow, redHigh, greenLow, greenHigh, blueLow, blueHigh, red, green, blue);
    }

    bool ReduceNode()
    {
        int level = maximumLevel;
        while (level >= 1 && Head(level) == 0)
            --level;
        if (level < 1)
            return false;
        const std::int32_t node = Head(level);
        Head(level) = At(node).next;
        Node total;
        for (std::size_t c = 0; c <= 7; ++c) {
            const std::int32_t child = At(node).children[c];
            if (child == 0)
                continue;
            total.red += At(child).red;
            total.green += At(child).green;
            total.blue += At(child).blue;
            total.pixels += At(child).pixels;
            FreeNode(child);
            --leafCount;
            At(node).children[c] = 0;
        }
        ++leafCount;
        At(node).leaf = true;
        At(node).red = total.red;
        At(node).green = total.green;
        At(node).blue = total.blue;
        At(node).pixels = total.pixels;
        return true;
    }

    void FreeNode(std::int32_t node)
    {
        At(node).next = freeHead;
        freeHead = node;
        At(node).leaf = false;
        At(node).marked = false;
        --nodeCount;
    }

    std::int32_t NewNode()
    {
        ++nodeCount;
        if (freeHead == 0) {
            if (static_cast<std::size_t>(nodeCount) >= nodes.size())
                nodes.resize(static_cast<std::size_t>(RoundHalfEven(nodeCount * 1.1)) + 1);
            return nodeCount;
        }
        const std::int32_t node = freeHead;
        freeHead = At(node).next;
        At(node).children = {};
        return node;
    }

    Node& At(std::int32_t node) { return nodes.at(static_cast<std::size_t>(node)); }
    std::int32_t& Head(int level)
    {
        if (level < 1 || level > 8)
            throw SubscriptError();
        return heads[static_cast<std::size_t>(level) - 1];
    }

    std::vector<Node> nodes;
    std::int32_t nodeCount = 0;
    int maximumLevel = 0;
    std::int32_t freeHead = 0;
    std::int32_t leafCount = 0;
    std::array<std::int32_t, 8> heads = {};
};

// --- Colour reduction. ---

inline void ClampTo(int& value, int low, int high)
{
    if (value < low)
        value = low;
    else if (value > high)
        value = high;
}

inline void GrayScale(Picture& picture)
{
    for (int x = 0; x <= picture.XEnd(); x += 3) {
        for (int y = 0; y <= picture.height - 1; ++y) {
            const int blue = picture.At(x, y);
            const int green = picture.At(x + 1, y);
            const int red = picture.At(x + 2, y);
            const auto grey = static_cast<Byte>(RoundHalfEven((707 * green + 222 * red + 71 * blue) / 1000.0));
            picture.At(x, y) = picture.At(x + 1, y) = picture.At(x + 2, y) = grey;
        }
    }
}

inline void AddToPixel(Picture& source, int x, int y, int share)
{
    int value = source.At(x, y) + share;
    ClampTo(value, 0, 255);
    source.At(x, y) = source.At(x + 1, y) = source.At(x + 2, y) = static_cast<Byte>(value);
}

inline void BlackAndWhite(Picture& source, Picture& target)
{
    GrayScale(source);
    const int xEnd = target.XEnd();
    const int yEnd = target.height - 1;
    const std::array<int, 3> weights = {3, 5, 1};
    for (int x = 0; x <= xEnd; x += 3) {
        for (int y = 0; y <= yEnd; ++y) {
            const int v = source.At(x, y);
            const Byte made = v <= 128 ? 0 : 255;
            const int e = v > 128 ? (255 - v) - 128 : v > 16 ? v : 0;
            target.At(x, y) = target.At(x + 1, y) = target.At(x + 2, y) = made;
            if (x < xEnd - 3)
                AddToPixel(source, x + 3, y, e * 7 / 16);
            if (y >= yEnd)
                continue;
            for (int k = -3; k <= 3; k += 3) {
                const int xx = x + k;
                if (xx >= xEnd || xx < 1)
                    continue;
                AddToPixel(source, xx, y + 1, e * weights[static_cast<std::size_t>(k / 3 + 1)] / 16);
            }
        }
    }
    source.bytes = target.bytes;
}

inline void ApplyPalette(Picture& source, Picture& target, const Entries& entries, bool dither)
{
    const int xEnd = target.XEnd();
    const int yEnd = target.height - 1;
    const std::array<int, 3> weights = {0, 4, 0};
    for (int x = 0; x <= xEnd; x += 3) {
        for (int y = 0; y <= yEnd; ++y) {
            const int index = ClosestIndex(entries, source.At(x + 2, y), source.At(x + 1, y), source.At(x, y));
            if (index == 0)
                throw SubscriptError();
            const ob::PaletteEntry& entry = entries[static_cast<std::size_t>(index) - 1];
            target.At(x + 2, y) = entry.red;
            target.At(x + 1, y) = entry.green;
            target.At(x, y) = entry.blue;
            if (!dither)
                continue;
            std::array<int, 3> error;
            for (int c = 0; c < 3; ++c)
                error[static_cast<std::size_t>(c)] = source.At(x + c, y) - target.At(x + c, y);
            if (std::abs(error[0]) + std::abs(error[1]) + std::abs(error[2]) <= 3)
                continue;
            const auto pass = [&](int xx, int yy, int weight) {
                for (int c = 0; c < 3; ++c) {
                    int value = source.At(xx + c, yy) + error[static_cast<std::size_t>(c)] * weight / 16;
                    ClampTo(value, 0, 255);
                    source.At(xx + c, yy) = static_cast<Byte>(value);
                }
            };
            if (x < xEnd - 3)
                pass(x + 3, y, 7);
            if (y >= yEnd)
                continue;
            for (int k = -3; k <= 3; k += 3) {
                const int xx = x + k;
                if (xx >= xEnd || xx < 1)
                    continue;
                pass(xx, y + 1, weights[static_cast<std::size_t>(k / 3 + 1)]);
            }
        }
    }
    source.bytes = target.bytes;
}

// --- Saving. ---

struct Slot {
    Byte blue = 0;
    Byte green = 0;
    Byte red = 0;
};

// The platform's copy: the nearest slot by squared distance; an exact colour takes its first slot.
inline int NearestSlot(const std::vector<Slot>& slots, int red, int green, int blue)
{
    int best = -1;
    int bestDistance = 0;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const int dR = slots[i].red - red;
        const int dG = slots[i].green - green;
        const int dB = slots[i].blue - blue;
        const int distance = dR * dR + dG * dG + dB * dB;
        if (best < 0 || distance < bestDistance) {
            best = static_cast<int>(i);
            bestDistance = distance;
        }
    }
    return best;
}

// The bytes of the file of 1, 4 or 8 bits; with copyBack the picture takes the slots' colours.
inline std::vector<Byte> IndexedFile(Picture& picture, const std::vector<Slot>& slots, int bits, bool copyBack)
{
    const int trueLine = (picture.width * bits + 31) / 32 * 4;
    std::vector<Byte> section(static_cast<std::size_t>(trueLine) * static_cast<std::size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const int index =
                NearestSlot(slots, picture.At(x * 3 + 2, y), picture.At(x * 3 + 1, y), picture.At(x * 3, y));
            Byte& byte = section[static_cast<std::size_t>(y * trueLine + x * bits / 8)];
            byte = static_cast<Byte>(byte | index << (8 - bits - x * bits % 8));
            if (copyBack) {
                const Slot& slot = slots[static_cast<std::size_t>(index)];
                picture.At(x * 3, y) = slot.blue;
                picture.At(x * 3 + 1, y) = slot.green;
                picture.At(x * 3 + 2, y) = slot.red;
            }
        }
    }
    const int b = bits == 1 ? picture.width / 8 : bits == 4 ? picture.width / 2 : picture.width;
    const int sizeImage = (b + b % 4) * picture.height;
    const int offset = 54 + (1 << bits) * 4;
    std::vector<Byte> file;
    const auto put = [&](int value, int count) {
        for (int i = 0; i < count; ++i)
            file.push_back(static_cast<Byte>(static_cast<unsigned>(value) >> (8 * i)));
    };
    put(19778, 2);
    put(sizeImage + offset, 4);
    put(0, 4);
    put(offset, 4);
    put(40, 4);
    put(picture.width, 4);
    put(picture.height, 4);
    put(1, 2);
    put(bits, 2);
    put(0, 4);
    put(sizeImage, 4);
    for (int i = 0; i < 4; ++i)
        put(0, 4);
    for (const Slot& slot : slots) {
        file.push_back(slot.blue);
        file.push_back(slot.green);
        file.push_back(slot.red);
        file.push_back(0);
    }
    section.resize(static_cast<std::size_t>(sizeImage));
    file.insert(file.end(), section.begin(), section.end());
    return file;
}

// --- Pictures to work on. ---

enum class Kind { Noise, FewColors, Photograph };

// The same seed makes the same picture.
inline Picture Random(int width, int height, Kind kind, unsigned seed)
{
    std::mt19937 generator(seed);
    Picture picture(width, height);
    const double phase = static_cast<double>(generator() % 1000) / 100;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width * 3; ++x) {
            Byte value = 0;
            if (kind == Kind::Noise) {
                value = static_cast<Byte>(generator());
            } else if (kind == Kind::FewColors) {
                value = static_cast<Byte>(generator() % 5 * 63);
            } else {
                // Slow waves of several lengths, and the grain of a sensor.
                const double column = x / 3;
                const double wave = std::sin(column / 97 + phase) + std::sin(y / 61.0 + x % 3) +
                                    std::sin((column + y) / 233 + 2 * phase) + 0.3 * std::sin(column / 7.0);
                const double grain = static_cast<double>(generator() % 1024) / 1024 - 0.5;
                const double light = 128 + 38 * wave + 5 * grain;
                value = static_cast<Byte>(light < 0 ? 0 : light > 255 ? 255 : light);
            }
            picture.At(x, y) = value;
        }
    }
    return picture;
}

} // namespace plain
