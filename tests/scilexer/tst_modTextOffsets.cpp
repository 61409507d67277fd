// SPDX-License-Identifier: GPL-3.0-or-later
// Conversion between bytes and UTF-16 units.
#include "BasicSource.h"
#include "scilexer/modTextOffsets.h"

#include <QtTest>

#include <algorithm>
#include <string>

using namespace ob;

namespace {

// Returns the text in two pieces, like an edit control whose text has a gap.
struct GapText {
    std::string text;
    std::intptr_t gap = 0;
    std::intptr_t bytesRead = 0;

    TextOffsets Offsets()
    {
        return TextOffsets(
            [this](std::intptr_t from, std::intptr_t to) {
                if (from < gap && gap < to)
                    to = gap;
                bytesRead += to - from;
                return std::string_view(text).substr(static_cast<std::size_t>(from),
                                                     static_cast<std::size_t>(to - from));
            },
            [this] { return static_cast<std::intptr_t>(text.size()); });
    }
};

std::string Characters(BasicSource& random, std::size_t count)
{
    static constexpr std::array<std::string_view, 5> letters = {"a", "\r\n", "\xC3\xA4", "\xE2\x82\xAC",
                                                                "\xF0\x9F\x98\x80"};
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += letters[random.Below(letters.size())];
    return text;
}

std::intptr_t Utf16Length(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).size();
}

bool StartsCharacter(const std::string& text, std::size_t position)
{
    return position == text.size() || (static_cast<unsigned char>(text[position]) & 0xC0) != 0x80;
}

} // namespace

class tst_modTextOffsets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyPositionConvertsBothWays();
    void anOffsetWithinACharacterIsItsStart();
    void positionsOutsideTheTextAreClamped();
    void randomChangesKeepTheCount();
    void nearbyRequestsReadLittle();
};

void tst_modTextOffsets::everyPositionConvertsBothWays()
{
    BasicSource random(1);
    GapText source{Characters(random, 9000), 12345};
    TextOffsets offsets = source.Offsets();
    std::intptr_t expected = 0;
    for (std::size_t i = 0; i < source.text.size();) {
        QCOMPARE(offsets.OffsetOf(static_cast<std::intptr_t>(i)), expected);
        QCOMPARE(offsets.PositionOf(expected), static_cast<std::intptr_t>(i));
        std::size_t next = i + 1;
        while (!StartsCharacter(source.text, next))
            ++next;
        expected += Utf16Length(std::string_view(source.text).substr(i, next - i));
        i = next;
    }
    QCOMPARE(expected, Utf16Length(source.text));
}

void tst_modTextOffsets::anOffsetWithinACharacterIsItsStart()
{
    GapText source{"a\xF0\x9F\x98\x80z", 3};
    TextOffsets offsets = source.Offsets();
    QCOMPARE(offsets.PositionOf(1), std::intptr_t{1});
    QCOMPARE(offsets.PositionOf(2), std::intptr_t{1});
    QCOMPARE(offsets.PositionOf(3), std::intptr_t{5});
}

void tst_modTextOffsets::positionsOutsideTheTextAreClamped()
{
    GapText source{"\xC3\xA4"
                   "b",
                   0};
    TextOffsets offsets = source.Offsets();
    QCOMPARE(offsets.OffsetOf(99), std::intptr_t{2});
    QCOMPARE(offsets.OffsetOf(-5), std::intptr_t{0});
    QCOMPARE(offsets.PositionOf(99), std::intptr_t{3});
    QCOMPARE(offsets.PositionOf(-5), std::intptr_t{0});
    GapText empty{"", 0};
    TextOffsets none = empty.Offsets();
    QCOMPARE(none.OffsetOf(7), std::intptr_t{0});
    QCOMPARE(none.PositionOf(7), std::intptr_t{0});
}

void tst_modTextOffsets::randomChangesKeepTheCount()
{
    BasicSource random(2);
    GapText source{Characters(random, 6000), 0};
    TextOffsets offsets = source.Offsets();
    const auto place = [&] {
        std::size_t position = random.Below(source.text.size() + 1);
        while (!StartsCharacter(source.text, position))
            --position;
        return position;
    };
    for (int step = 0; step < 3000; ++step) {
        const std::size_t from = place();
        std::size_t to = std::min(source.text.size(), from + random.Below(30));
        while (!StartsCharacter(source.text, to))
            ++to;
        offsets.NoteChange(static_cast<std::intptr_t>(from));
        source.text.replace(from, to - from, Characters(random, random.Below(16)));
        source.gap = static_cast<std::intptr_t>(place());
        const std::size_t asked = place();
        const std::intptr_t expected = Utf16Length(std::string_view(source.text).substr(0, asked));
        if (random.Below(2) == 0)
            QCOMPARE(offsets.OffsetOf(static_cast<std::intptr_t>(asked)), expected);
        else
            QCOMPARE(offsets.PositionOf(expected), static_cast<std::intptr_t>(asked));
    }
}

void tst_modTextOffsets::nearbyRequestsReadLittle()
{
    GapText source{std::string(20000000, 'a'), 10000000};
    TextOffsets offsets = source.Offsets();
    offsets.OffsetOf(10000000);
    source.bytesRead = 0;
    for (std::intptr_t position = 10000000; position > 9999000; --position) {
        QCOMPARE(offsets.OffsetOf(position), position);
        offsets.NoteChange(position - 1);
    }
    QVERIFY(source.bytesRead < 10000);
    QCOMPARE(offsets.PositionOf(10002000), std::intptr_t{10002000});
    QVERIFY(source.bytesRead < 40000);
}

QTEST_APPLESS_MAIN(tst_modTextOffsets)
#include "tst_modTextOffsets.moc"
