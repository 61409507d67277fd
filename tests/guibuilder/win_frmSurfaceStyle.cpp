// SPDX-License-Identifier: GPL-3.0-or-later
// The form's font and colours on the drawing surface, and how its texts are laid out.
#include "support/BenchTest.h"

#include "guibuilder/SurfacePicture.h"

#include <QFontMetricsF>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmSurfaceStyle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void systemColorsOfFilesAreKnown();
    void unknownColorNamesFallBackToTheDefaultColors();
    void ampersandUnderlinesTheNextCharacter();
    void wordsWrapAtTheWidthOfAStatictext();
    void fontSizeIsInPoints_data();
    void fontSizeIsInPoints();
    void missingFontsHaveSubstitutesOfTheirKind();
};

void win_frmSurfaceStyle::systemColorsOfFilesAreKnown()
{
    QCOMPARE(SurfaceColor(0x8000000F), QColor(240, 240, 240));
    QCOMPARE(SurfaceColor(0x80000005), QColor(255, 255, 255));
    QCOMPARE(SurfaceColor(0x80000008), QColor(0, 0, 0));
    QCOMPARE(SurfaceColor(0xFFFFFFFF), QColor(0, 0, 0));
    QCOMPARE(SurfaceColor(Rgb(1, 2, 250)), QColor(1, 2, 250));
}

void win_frmSurfaceStyle::unknownColorNamesFallBackToTheDefaultColors()
{
    GuiForm form;
    for (QString* name : {&form.GuiForegroundColor, &form.GuiBackgroundColor, &form.GuiTextboxColor,
                          &form.GuiTexteditorColor, &form.GuiListboxColor, &form.GuiComboboxColor})
        *name = u"Mauve"_s;
    const SurfaceStyle style(form, PictureScale);
    QCOMPARE(style.fore, QColor(Qt::black));
    QCOMPARE(style.surface, QColor(240, 240, 240));
    for (const QColor& field : {style.textbox, style.texteditor, style.listbox, style.combobox})
        QCOMPARE(field, QColor(Qt::white));
}

void win_frmSurfaceStyle::ampersandUnderlinesTheNextCharacter()
{
    const SurfaceStyle style(GuiForm(), PictureScale);
    const SurfaceText plain = style.Line(u"Save"_s, Ampersands::Mark);
    QVERIFY(!plain.underline);
    const SurfaceText marked = style.Line(u"S&ave"_s, Ampersands::Mark);
    QCOMPARE(marked.size, plain.size);
    QVERIFY(marked.underline);
    const QFontMetricsF metrics(style.font);
    QVERIFY(std::abs(marked.underline->x1() - metrics.horizontalAdvance(u'S')) < 0.5);
    QVERIFY(std::abs(marked.underline->dx() - metrics.horizontalAdvance(u'a')) < 0.5);
    const SurfaceText twice = style.Line(u"S&&v"_s, Ampersands::Mark);
    QVERIFY(!twice.underline);
    QCOMPARE(twice.size, style.Line(u"S&v"_s, Ampersands::Keep).size);
    QCOMPARE(style.Line(u"Save&"_s, Ampersands::Mark).size, plain.size);
    QVERIFY(style.Line(QString(), Ampersands::Mark).runs.isEmpty());
}

void win_frmSurfaceStyle::wordsWrapAtTheWidthOfAStatictext()
{
    const SurfaceStyle style(GuiForm(), PictureScale);
    const QString words = u"three short words"_s;
    const qreal line = style.Paragraph(words, 500).size.height();
    QCOMPARE(style.Paragraph(words, 1).size.height(), 3 * line);
    QCOMPARE(style.Paragraph(u"one\r\ntwo\nthree"_s, 500).size.height(), 3 * line);
    QVERIFY(style.Paragraph(words, 60).size.width() <= 60);
}

void win_frmSurfaceStyle::fontSizeIsInPoints_data()
{
    QTest::addColumn<QString>("points");
    QTest::addColumn<int>("twips");
    QTest::addColumn<int>("pixels");
    QTest::newRow("ten") << "10" << 15 << 13;
    QTest::newRow("twelve") << " 12 " << 15 << 16;
    QTest::newRow("fraction") << "8.25" << 15 << 11;
    QTest::newRow("finer screen") << "12" << 10 << 24;
    QTest::newRow("number in front") << "18 bold" << 15 << 24;
    QTest::newRow("none") << "" << 15 << 13;
    QTest::newRow("zero") << "0" << 15 << 13;
    QTest::newRow("negative") << "-4" << 15 << 13;
    QTest::newRow("word") << "large" << 15 << 13;
    QTest::newRow("tiny") << "0.01" << 15 << 1;
    QTest::newRow("huge") << "123456789012345678901234567890" << 15 << 533;
}

void win_frmSurfaceStyle::fontSizeIsInPoints()
{
    QFETCH(QString, points);
    QFETCH(int, twips);
    QFETCH(int, pixels);
    QCOMPARE(SurfaceFont(u"ms sans serif"_s, points, twips).pixelSize(), pixels);
}

void win_frmSurfaceStyle::missingFontsHaveSubstitutesOfTheirKind()
{
    const auto families = [](const char* name) {
        return SurfaceFont(QString::fromLatin1(name), u"10"_s, SurfaceTwips).families().last();
    };
    QCOMPARE(families("ms sans serif"), u"Liberation Sans"_s);
    QCOMPARE(families("a name of no font"), u"Liberation Sans"_s);
    QCOMPARE(families(""), u"Liberation Sans"_s);
    QCOMPARE(families("courier new"), u"Liberation Mono"_s);
    QCOMPARE(families("Lucida Console"), u"Liberation Mono"_s);
    QCOMPARE(families("Times New Roman"), u"Liberation Serif"_s);
    QCOMPARE(families("ms serif"), u"Liberation Serif"_s);
}

OB_BENCH_TEST(win_frmSurfaceStyle)
#include "win_frmSurfaceStyle.moc"
