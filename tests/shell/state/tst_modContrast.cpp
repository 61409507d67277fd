// SPDX-License-Identifier: GPL-3.0-or-later
// Colours made readable on a given background.
#include "shell/state/modContrast.h"
#include "shell/state/modEditorSettings.h"

#include <QtTest>

using namespace ob;

namespace {

constexpr ColorRef Black = Rgb(0, 0, 0);
constexpr ColorRef White = Rgb(255, 255, 255);
constexpr ColorRef DarkWindow = Rgb(27, 30, 32);

int Red(ColorRef color)
{
    return static_cast<int>(color & 0xFF);
}

int Green(ColorRef color)
{
    return static_cast<int>(color >> 8 & 0xFF);
}

int Blue(ColorRef color)
{
    return static_cast<int>(color >> 16 & 0xFF);
}

} // namespace

class tst_modContrast : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void contrastIsThatOfTheGuidelines()
    {
        QVERIFY(std::abs(ContrastOf(Black, White) - 21) < 0.001);
        QVERIFY(std::abs(ContrastOf(White, White) - 1) < 0.001);
        // The lightest grey that the guidelines allow for text on white.
        QVERIFY(std::abs(ContrastOf(Rgb(118, 118, 118), White) - 4.54) < 0.01);
    }

    void readableColorStays()
    {
        QCOMPARE(ReadableOn(White, Rgb(0, 0, 200)), Rgb(0, 0, 200));
        QCOMPARE(ReadableOn(Black, Rgb(255, 255, 0)), Rgb(255, 255, 0));
    }

    void everyColorIsMadeReadableInItsHue()
    {
        for (const ColorRef ground : {Black, White, DarkWindow, Rgb(240, 240, 240)}) {
            for (unsigned red = 0; red <= 255; red += 51)
                for (unsigned green = 0; green <= 255; green += 51)
                    for (unsigned blue = 0; blue <= 255; blue += 51)
                        QVERIFY(ContrastOf(ground, ReadableOn(ground, Rgb(red, green, blue), PictureContrast)) >=
                                PictureContrast);
        }
        const ColorRef keyword = ReadableOn(DarkWindow, Rgb(0, 0, 200));
        QVERIFY(Blue(keyword) > Red(keyword) && Red(keyword) == Green(keyword));
        QVERIFY(ContrastOf(DarkWindow, keyword) >= ReadableContrast);
    }

    void groundIsAsFarFromTheDarkWindowAsFromWhite()
    {
        const ColorRef comment = GroundLike(DarkWindow, Rgb(240, 240, 240));
        QVERIFY(IsDark(comment));
        QCOMPARE(comment, Rgb(45, 45, 45));
        QCOMPARE(GroundLike(DarkWindow, Rgb(10, 40, 10)), Rgb(10, 40, 10));
        QCOMPARE(GroundLike(White, Rgb(240, 240, 240)), Rgb(240, 240, 240));
    }

    void lightWindowShowsWhatWasChosen()
    {
        EditorSettings settings;
        settings.EditBackColor = White;
        settings.KeywordColor = 0xFFFFFFFF;
        settings.CommentBackColor = Rgb(0, 0, 40);
        settings.CommentColor = Rgb(0, 0, 60);
        const EditorSettings shown = ShownColors(settings);
        QCOMPARE(shown.KeywordColor, settings.KeywordColor);
        QCOMPARE(shown.CommentBackColor, settings.CommentBackColor);
        QCOMPARE(shown.CommentColor, settings.CommentColor);
        QCOMPARE(ShownText(White, Rgb(250, 250, 250)), Rgb(250, 250, 250));
        QCOMPARE(ShownLineNumbers(settings).back, Rgb(234, 234, 234));
    }
};

QTEST_APPLESS_MAIN(tst_modContrast)
#include "tst_modContrast.moc"
