// SPDX-License-Identifier: GPL-3.0-or-later
// A control's properties: which fields they show, and how the fields change the control.
#include "core/CoreBench.h"

#include "guibuilder/modProperties.h"

#include <QBuffer>
#include <QImage>

#include <limits>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

using enum ControlKind;

constexpr SurfaceScale Scale;
constexpr SurfaceScale OtherScale = {12, 10};

ControlRecord Sample()
{
    ControlRecord control;
    control.visible = true;
    control.left = 150;
    control.top = 300;
    control.width = 1200;
    control.height = 450;
    control.caption = u"Caption"_s;
    control.tag = u"name *tip"_s;
    control.branch = u"branch"_s;
    control.backColor = Rgb(255, 0, 0);
    return control;
}

// The control after a dialog in which the fields were changed so, confirmed.
template <class Change>
ControlRecord Confirmed(ControlKind kind, Change change, SurfaceScale scale = Scale)
{
    ControlRecord control = Sample();
    PropertyTexts texts = PropertiesOf(control, kind, scale).texts;
    change(texts);
    ApplyProperties(control, kind, texts, ControlFate::Kept, scale);
    return control;
}

QByteArray Bitmap(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QBuffer file;
    picture.save(&file, "BMP");
    return file.data();
}

} // namespace

class tst_modProperties : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void eachKindHasItsFields_data();
    void eachKindHasItsFields();
    void everyKindShowsNameAndRectangle();
    void tagIsSplitAtItsFirstMark_data();
    void tagIsSplitAtItsFirstMark();
    void graphicboxShowsItsColor();
    void otherKindsShowNoColor();
    void measuresAreDividedByTheScreensFactors();

    void textsBecomeTwips_data();
    void textsBecomeTwips();
    void untouchedMeasureStaysAsItWas();
    void sizesAreTenTwipsAtLeast_data();
    void sizesAreTenTwipsAtLeast();
    void sizesComeFromTheScreensFactors();
    void placesMayBeNegative();
    void tooltipJoinsTheTagOfKindsWithTheField_data();
    void tooltipJoinsTheTagOfKindsWithTheField();
    void branchIsStoredUnchanged();
    void captionIsStoredForKindsThatHaveOne_data();
    void captionIsStoredForKindsThatHaveOne();
    void graphicboxTakesTheChosenColor();
    void unknownColorStaysWhenNothingWasChosen();
    void confirmingUnchangedFieldsTwiceChangesNothing_data();
    void confirmingUnchangedFieldsTwiceChangesNothing();

    void bitmapGivesPictureCaptionAndSize();
    void unreadableBitmapLeavesPictureAndSize_data();
    void unreadableBitmapLeavesPictureAndSize();
    void missingBitmapIsAskedFor_data();
    void missingBitmapIsAskedFor();
    void deletingHidesAndStillSetsTheFields();
    void deletedBmpbuttonIsNotAskedForItsBitmap();
    void deletedBmpbuttonStillTakesItsBitmap();
    void bitmapPathKeepsItsCaseWhereItCounts();

private:
    std::unique_ptr<CoreBench> bench;
};

void tst_modProperties::eachKindHasItsFields_data()
{
    QTest::addColumn<ControlKind>("kind");
    QTest::addColumn<QStringList>("texts"); // caption, branch, bitmap, tool tip
    QTest::addColumn<QString>("enabled");   // their initials, and "c" for the colour
    const auto row = [](ControlKind kind, const char* texts, const char* enabled) {
        QTest::addRow("%s", TraitsOf(kind).propWord.data())
            << kind << QString::fromLatin1(texts).split(QLatin1Char('|')) << QString::fromLatin1(enabled);
    };
    row(Groupbox, "Caption|N/A|N/A|N/A", "C");
    row(Statictext, "Caption|N/A|N/A|N/A", "C");
    row(Checkbox, "Caption|branch||tip", "CBT");
    row(Radiobutton, "Caption|branch||tip", "CBT");
    row(Textbox, "N/A|N/A||tip", "T");
    row(Texteditor, "N/A|N/A||tip", "T");
    row(Button, "Caption|branch||tip", "CBT");
    row(Bmpbutton, "Caption|branch|Caption|tip", "BMT");
    row(Graphicbox, "N/A|branch||tip", "BTc");
    row(Listbox, "|branch||tip", "BT");
    row(Combobox, "|branch||tip", "BT");
}

void tst_modProperties::eachKindHasItsFields()
{
    QFETCH(ControlKind, kind);
    const PropertyFields fields = PropertiesOf(Sample(), kind, Scale);
    QTEST((QStringList{fields.texts.caption, fields.texts.branch, fields.texts.bitmap, fields.texts.tooltip}), "texts");
    QString enabled;
    enabled += fields.captionEnabled ? u"C"_s : QString();
    enabled += fields.branchEnabled ? u"B"_s : QString();
    enabled += fields.bitmapEnabled ? u"M"_s : QString();
    enabled += fields.tooltipEnabled ? u"T"_s : QString();
    enabled += fields.colorEnabled ? u"c"_s : QString();
    QTEST(enabled, "enabled");
}

void tst_modProperties::everyKindShowsNameAndRectangle()
{
    for (const KindTraits& traits : KindTable) {
        const PropertyTexts texts = PropertiesOf(Sample(), traits.kind, Scale).texts;
        QCOMPARE(texts.name, u"name"_s);
        QCOMPARE((QStringList{texts.left, texts.top, texts.width, texts.height}),
                 (QStringList{u"10"_s, u"20"_s, u"80"_s, u"30"_s}));
    }
}

void tst_modProperties::tagIsSplitAtItsFirstMark_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("tooltip");
    const auto row = [](const char* title, const char* tag, const char* name, const char* tooltip) {
        QTest::newRow(title) << QString::fromLatin1(tag) << QString::fromLatin1(name) << QString::fromLatin1(tooltip);
    };
    row("both", "ok *Go on", "ok", "Go on");
    row("name alone", "ok", "ok", "");
    row("nothing", "", "", "");
    row("empty name", " *Go on", "", "Go on");
    row("empty tip", "ok *", "ok", "");
    row("two marks", "ok *one *two", "ok", "one *two");
    row("star without a space", "ok*one", "ok*one", "");
    row("spaces stay", " ok  * tip ", " ok ", " tip ");
    row("quotes and bars", "a\"b|c *d|\"e", "a\"b|c", "d|\"e");
}

void tst_modProperties::tagIsSplitAtItsFirstMark()
{
    QFETCH(QString, tag);
    ControlRecord control = Sample();
    control.tag = tag;
    const PropertyTexts texts = PropertiesOf(control, Button, Scale).texts;
    QTEST(texts.name, "name");
    QTEST(texts.tooltip, "tooltip");
    // A kind without tool tips shows the same name.
    QTEST(PropertiesOf(control, Groupbox, Scale).texts.name, "name");
}

void tst_modProperties::graphicboxShowsItsColor()
{
    ControlRecord control = Sample();
    for (int color = 0; color < ColorCount; ++color) {
        control.backColor = ColorValue[static_cast<std::size_t>(color)];
        QCOMPARE(PropertiesOf(control, Graphicbox, Scale).texts.color, color);
    }
    control.backColor = Rgb(1, 2, 3);
    QCOMPARE(PropertiesOf(control, Graphicbox, Scale).texts.color, -1);
}

void tst_modProperties::otherKindsShowNoColor()
{
    for (const KindTraits& traits : KindTable)
        if (traits.kind != Graphicbox)
            QCOMPARE(PropertiesOf(Sample(), traits.kind, Scale).texts.color, -1);
}

void tst_modProperties::measuresAreDividedByTheScreensFactors()
{
    ControlRecord control = Sample();
    control.left = -30;
    const PropertyTexts texts = PropertiesOf(control, Button, OtherScale).texts;
    QCOMPARE((QStringList{texts.left, texts.top, texts.width, texts.height}),
             (QStringList{u"-2.5"_s, u"30"_s, u"100"_s, u"45"_s}));
}

void tst_modProperties::textsBecomeTwips_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("left");
    const auto row = [](const char* text, double left) {
        QTest::newRow(text) << QString::fromLatin1(text) << static_cast<float>(left);
    };
    row("0", 0);
    row("-0", 0);
    row("", 0);
    row("   ", 0);
    row("abc", 0);
    row("12abc", 180);
    row("  12  ", 180);
    row("1 2", 180);
    row("12.5", 187.5);
    row("12,5", 180);
    row("&H10", 240);
    row("-7", -105);
    row("1e2", 1500);
    row("1e300", MostTwips);
    row("-1e300", -MostTwips);
    row("1e999", MostTwips);
    row("  -1d999", -MostTwips);
    row("&HFFFFFFFFFF", MostTwips);
    row("1e-300", 0);
    row("666666", MostTwips);
    row("666667", MostTwips);
    row("nan", 0);
    row("inf", 0);
}

void tst_modProperties::textsBecomeTwips()
{
    QFETCH(QString, text);
    const ControlRecord control = Confirmed(Button, [&](PropertyTexts& texts) { texts.left = text; });
    QTEST(control.left, "left");
    QVERIFY(!std::signbit(control.left) || control.left < 0);
    // A value once taken is shown and taken again unchanged.
    ControlRecord again = control;
    ApplyProperties(again, Button, PropertiesOf(again, Button, Scale).texts, ControlFate::Kept, Scale);
    QTEST(again.left, "left");
}

void tst_modProperties::untouchedMeasureStaysAsItWas()
{
    ControlRecord control = Sample();
    control.left = 100;
    control.top = 1.0e30f;
    control.width = std::numeric_limits<float>::max();
    control.height = 1234.567f;
    ControlRecord confirmed = control;
    ApplyProperties(confirmed, Button, PropertiesOf(control, Button, Scale).texts, ControlFate::Kept, Scale);
    QVERIFY(confirmed == control);
    // The same number written differently is a number that was typed.
    PropertyTexts texts = PropertiesOf(control, Button, Scale).texts;
    texts.left = u"6.70"_s;
    ApplyProperties(confirmed, Button, texts, ControlFate::Kept, Scale);
    QCOMPARE(confirmed.left, 100.5f);
}

void tst_modProperties::sizesAreTenTwipsAtLeast_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("size");
    const auto row = [](const char* text, float size) { QTest::newRow(text) << QString::fromLatin1(text) << size; };
    row("0", 10);
    row("", 10);
    row("wide", 10);
    row("-40", 10);
    row("-1e300", 10);
    row("0.5", 10);
    row("0.7", 10.5);
    row("1", 15);
    row("40", 600);
}

void tst_modProperties::sizesAreTenTwipsAtLeast()
{
    QFETCH(QString, text);
    const ControlRecord control = Confirmed(Button, [&](PropertyTexts& texts) { texts.width = texts.height = text; });
    QTEST(control.width, "size");
    QTEST(control.height, "size");
}

void tst_modProperties::sizesComeFromTheScreensFactors()
{
    const auto change = [](PropertyTexts& texts) { texts.left = texts.top = texts.width = texts.height = u"50"_s; };
    const ControlRecord control = Confirmed(Button, change, OtherScale);
    QCOMPARE(control.left, 600.0f);
    QCOMPARE(control.top, 500.0f);
    QCOMPARE(control.width, 600.0f);
    QCOMPARE(control.height, 500.0f);
}

void tst_modProperties::placesMayBeNegative()
{
    const ControlRecord control = Confirmed(Button, [](PropertyTexts& texts) {
        texts.left = u"-3"_s;
        texts.top = u"-4"_s;
    });
    QCOMPARE(control.left, -45.0f);
    QCOMPARE(control.top, -60.0f);
}

void tst_modProperties::tooltipJoinsTheTagOfKindsWithTheField_data()
{
    QTest::addColumn<ControlKind>("kind");
    for (const KindTraits& traits : KindTable)
        QTest::addRow("%s", traits.propWord.data()) << traits.kind;
}

void tst_modProperties::tooltipJoinsTheTagOfKindsWithTheField()
{
    QFETCH(ControlKind, kind);
    const bool hasField = kind != Groupbox && kind != Statictext;
    const auto with = [&](const char* name, const char* tooltip) {
        return Confirmed(kind,
                         [&](PropertyTexts& texts) {
                             texts.name = QString::fromLatin1(name);
                             texts.tooltip = QString::fromLatin1(tooltip);
                         })
            .tag;
    };
    QCOMPARE(with("ok", "Go | \"on\""), hasField ? u"ok *Go | \"on\""_s : u"ok"_s);
    QCOMPARE(with("ok", ""), hasField ? u"ok *"_s : u"ok"_s);
    QCOMPARE(with("", ""), hasField ? u" *"_s : QString());
}

void tst_modProperties::branchIsStoredUnchanged()
{
    for (const char* branch : {"", "ok.click", "[ok.click]", "  [half", "a|b*c\"d"}) {
        const QString text = QString::fromLatin1(branch);
        QCOMPARE(Confirmed(Button, [&](PropertyTexts& texts) { texts.branch = text; }).branch, text);
    }
    QCOMPARE(Confirmed(Groupbox, [](PropertyTexts&) {}).branch, u"N/A"_s);
}

void tst_modProperties::captionIsStoredForKindsThatHaveOne_data()
{
    tooltipJoinsTheTagOfKindsWithTheField_data();
}

void tst_modProperties::captionIsStoredForKindsThatHaveOne()
{
    QFETCH(ControlKind, kind);
    const bool hasCaption =
        kind == Groupbox || kind == Button || kind == Radiobutton || kind == Checkbox || kind == Statictext;
    const ControlRecord control = Confirmed(kind, [](PropertyTexts& texts) {
        texts.caption = u"New | \"one\" *"_s;
        texts.bitmap.clear();
    });
    QCOMPARE(control.caption, hasCaption ? u"New | \"one\" *"_s : u"Caption"_s);
}

void tst_modProperties::graphicboxTakesTheChosenColor()
{
    const auto darkpink = [](PropertyTexts& texts) { texts.color = 15; };
    QCOMPARE(Confirmed(Graphicbox, darkpink).backColor, Rgb(128, 0, 128));
    QCOMPARE(Confirmed(Button, darkpink).backColor, Sample().backColor);
}

void tst_modProperties::unknownColorStaysWhenNothingWasChosen()
{
    ControlRecord control = Sample();
    control.backColor = Rgb(1, 2, 3);
    ApplyProperties(control, Graphicbox, PropertiesOf(control, Graphicbox, Scale).texts, ControlFate::Kept, Scale);
    QCOMPARE(control.backColor, Rgb(1, 2, 3));
}

void tst_modProperties::confirmingUnchangedFieldsTwiceChangesNothing_data()
{
    tooltipJoinsTheTagOfKindsWithTheField_data();
}

void tst_modProperties::confirmingUnchangedFieldsTwiceChangesNothing()
{
    QFETCH(ControlKind, kind);
    ControlRecord once = Sample();
    once.caption = bench->Put(u"two.bmp"_s, Bitmap(2, 3));
    QCOMPARE(ApplyProperties(once, kind, PropertiesOf(once, kind, Scale).texts, ControlFate::Kept, Scale),
             PropertiesEnd::Applied);
    ControlRecord twice = once;
    ApplyProperties(twice, kind, PropertiesOf(twice, kind, Scale).texts, ControlFate::Kept, Scale);
    QVERIFY(twice == once);
}

void tst_modProperties::bitmapGivesPictureCaptionAndSize()
{
    const QString path = bench->Put(u"Key.bmp"_s, Bitmap(40, 24));
    ControlRecord control = Sample();
    PropertyTexts texts = PropertiesOf(control, Bmpbutton, Scale).texts;
    texts.bitmap = path;
    texts.width = texts.height = u"500"_s;
    const SurfaceScale scale = {12, ProgramTwipsPerPixel};
    QCOMPARE(ApplyProperties(control, Bmpbutton, texts, ControlFate::Kept, scale), PropertiesEnd::Applied);
    QCOMPARE(control.caption, path);
    QCOMPARE(control.picture.Image().size(), QSize(40, 24));
    QCOMPARE(control.width, 480.0f);
    QCOMPARE(control.height, 360.0f);
}

void tst_modProperties::unreadableBitmapLeavesPictureAndSize_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no file") << u"missing.bmp"_s;
    QTest::newRow("a folder") << u"."_s;
    QTest::newRow("no bitmap") << u"text.bmp"_s;
    QTest::newRow("cut off") << u"short.bmp"_s;
    QTest::newRow("a space") << u" "_s;
}

void tst_modProperties::unreadableBitmapLeavesPictureAndSize()
{
    QFETCH(QString, path);
    bench->Put(u"text.bmp"_s, "print 1");
    bench->Put(u"short.bmp"_s, Bitmap(40, 24).left(30));
    ControlRecord control = Sample();
    control.picture = QImage(8, 9, QImage::Format_RGB32);
    const cButtonPicture before = control.picture;
    PropertyTexts texts = PropertiesOf(control, Bmpbutton, Scale).texts;
    texts.name = u"key"_s;
    texts.bitmap = path;
    texts.width = u"64"_s;
    QCOMPARE(ApplyProperties(control, Bmpbutton, texts, ControlFate::Kept, Scale), PropertiesEnd::Applied);
    QCOMPARE(control.caption, path);
    QCOMPARE(control.tag, u"key *tip"_s);
    QVERIFY(control.picture == before);
    QCOMPARE(control.width, 960.0f);
    QCOMPARE(control.height, 450.0f);
}

void tst_modProperties::missingBitmapIsAskedFor_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("placeholder") << u"bmpbttn"_s;
    QTest::newRow("empty") << QString();
}

void tst_modProperties::missingBitmapIsAskedFor()
{
    QFETCH(QString, path);
    ControlRecord control = Sample();
    PropertyTexts texts = PropertiesOf(control, Bmpbutton, Scale).texts;
    texts.bitmap = path;
    texts.branch = u"[new]"_s;
    QCOMPARE(ApplyProperties(control, Bmpbutton, texts, ControlFate::Kept, Scale), PropertiesEnd::LacksBitmap);
    QCOMPARE(control.branch, u"[new]"_s);
    QCOMPARE(control.caption, u"Caption"_s);
    for (const KindTraits& traits : KindTable)
        if (traits.kind != Bmpbutton)
            QCOMPARE(ApplyProperties(control, traits.kind, texts, ControlFate::Kept, Scale), PropertiesEnd::Applied);
}

void tst_modProperties::deletingHidesAndStillSetsTheFields()
{
    ControlRecord control = Sample();
    PropertyTexts texts = PropertiesOf(control, Button, Scale).texts;
    texts.name = u"gone"_s;
    texts.left = u"1"_s;
    texts.caption = u"Gone"_s;
    QCOMPARE(ApplyProperties(control, Button, texts, ControlFate::Deleted, Scale), PropertiesEnd::Applied);
    QVERIFY(!control.visible);
    QCOMPARE(control.tag, u"gone *tip"_s);
    QCOMPARE(control.left, 15.0f);
    QCOMPARE(control.caption, u"Gone"_s);
}

void tst_modProperties::deletedBmpbuttonIsNotAskedForItsBitmap()
{
    ControlRecord control = Sample();
    control.caption = NoBitmap;
    const PropertyTexts texts = PropertiesOf(control, Bmpbutton, Scale).texts;
    QCOMPARE(ApplyProperties(control, Bmpbutton, texts, ControlFate::Deleted, Scale), PropertiesEnd::Applied);
    QVERIFY(!control.visible);
}

void tst_modProperties::deletedBmpbuttonStillTakesItsBitmap()
{
    ControlRecord control = Sample();
    control.caption = bench->Put(u"key.bmp"_s, Bitmap(5, 6));
    const PropertyTexts texts = PropertiesOf(control, Bmpbutton, Scale).texts;
    QCOMPARE(ApplyProperties(control, Bmpbutton, texts, ControlFate::Deleted, Scale), PropertiesEnd::Applied);
    QCOMPARE(control.picture.Image().size(), QSize(5, 6));
}

void tst_modProperties::bitmapPathKeepsItsCaseWhereItCounts()
{
    const QString path = bench->Put(u"Mixed Case.BMP"_s, Bitmap(1, 1));
#ifdef Q_OS_WIN
    QCOMPARE(BitmapPathOf(path), BitmapPathOf(path).toLower());
#else
    QCOMPARE(BitmapPathOf(path), path);
#endif
    QVERIFY(QFile::exists(BitmapPathOf(path)));
}

OB_CORE_TEST(tst_modProperties)
#include "tst_modProperties.moc"
