// SPDX-License-Identifier: GPL-3.0-or-later
// The window record in the dialog of its defaults, and back from it.
#include "core/CoreBench.h"

#include "guibuilder/modWindowDefaults.h"

#include <limits>

using namespace ob;

namespace {

QString Text(const char* text)
{
    return QString::fromLatin1(text);
}

QString& ColorIn(WindowDefaults& values, FormColor color)
{
    return values.colors[static_cast<std::size_t>(color)];
}

// A form each of whose values differs from all others.
constexpr SurfaceScale Scale;
constexpr SurfaceScale OtherScale = {12, 10};

GuiForm Sample()
{
    GuiForm form;
    form.GuiWindowType = Text("Window_nf");
    form.caption = Text("Addresses");
    form.width = 4500;
    form.height = 3000;
    form.GuiHandleName = Text("addresses");
    form.GuiFontName = Text("Arial");
    form.GuiFontSize = Text("12");
    form.GuiForegroundColor = Text("Blue");
    form.GuiBackgroundColor = Text("Yellow");
    form.GuiListboxColor = Text("Red");
    form.GuiComboboxColor = Text("Green");
    form.GuiTextboxColor = Text("Cyan");
    form.GuiTexteditorColor = Text("Pink");
    form.GuiTooltipsOn = true;
    form.GuiStatusbarOn = true;
    form.panels = {Text("Ready"), Text("Second")};
    return form;
}

} // namespace

class tst_modWindowDefaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void showsTheWindowRecord();
    void freshFormShowsItsDefaults();
    void eachFlagHasItsValue();
    void unchangedValuesChangeOnlyTheTag();
    void takesEveryValue();
    void firstConfirmationIsMarked();
    void backgroundColorsTheWindow();
    void graphicsWindowTakesItsOwnColor_data();
    void graphicsWindowTakesItsOwnColor();
    void unknownColorNameIsKeptAndColorsNothing();
    void measuresAreReadAsNumbers_data();
    void measuresAreReadAsNumbers();
    void measuresComeFromTheScreensFactors();
    void untouchedMeasureStaysAsItWas();
    void emptyStatusTextIsFilled();
    void withoutStatusBarThePanelsStay();
    void formWithoutPanelsGetsOne();
    void fontBoxStartsWithTheFormsFont_data();
    void fontBoxStartsWithTheFormsFont();

private:
    std::unique_ptr<CoreBench> bench;
};

void tst_modWindowDefaults::showsTheWindowRecord()
{
    const WindowDefaults values = DefaultsOf(Sample(), Scale);
    QCOMPARE(values.caption, Text("Addresses"));
    QCOMPARE(values.handle, Text("addresses"));
    QCOMPARE(values.windowType, Text("Window_nf"));
    QCOMPARE(values.fontName, Text("Arial"));
    QCOMPARE(values.fontSize, Text("12"));
    QCOMPARE(values.width, Text("300"));
    QCOMPARE(values.height, Text("200"));
    const std::array<QString, FormColorCount> colors = {Text("Blue"), Text("Yellow"), Text("Red"),   Text("Green"),
                                                        Text("Cyan"), Text("Pink"),   Text("Yellow")};
    QVERIFY(values.colors == colors);
    QCOMPARE(values.statusText, Text("Ready"));
}

void tst_modWindowDefaults::freshFormShowsItsDefaults()
{
    const WindowDefaults values = DefaultsOf(GuiForm(), Scale);
    QCOMPARE(values.caption, Text("Window Title"));
    QCOMPARE(values.handle, Text("main"));
    QCOMPARE(values.windowType, Text("Window"));
    QCOMPARE(values.fontName, Text("ms sans serif"));
    QCOMPARE(values.fontSize, Text("10"));
    QVERIFY(values.menu && !values.tooltips && !values.statusbar && !values.timer);
    QCOMPARE(values.statusText, FirstPanelText);
}

void tst_modWindowDefaults::eachFlagHasItsValue()
{
    using Flag = std::pair<bool GuiForm::*, bool WindowDefaults::*>;
    const std::array<Flag, 4> flags = {Flag{&GuiForm::GuiTooltipsOn, &WindowDefaults::tooltips},
                                       Flag{&GuiForm::GuiStatusbarOn, &WindowDefaults::statusbar},
                                       Flag{&GuiForm::GuiTimerOn, &WindowDefaults::timer},
                                       Flag{&GuiForm::GuiMenuOn, &WindowDefaults::menu}};
    for (const Flag& on : flags) {
        GuiForm form;
        for (const Flag& flag : flags)
            form.*flag.first = flag == on;
        const WindowDefaults values = DefaultsOf(form, Scale);
        GuiForm other = Sample();
        ApplyDefaults(other, values, Scale);
        for (const Flag& flag : flags) {
            QCOMPARE(values.*flag.second, flag == on);
            QCOMPARE(other.*flag.first, flag == on);
        }
    }
}

void tst_modWindowDefaults::unchangedValuesChangeOnlyTheTag()
{
    GuiForm form = Sample();
    form.GuiDefaultsState = 1;
    SetColorByName(form.backColor, form.GuiBackgroundColor);
    GuiForm expected = form;
    expected.windowTag = Text("Window_nf");
    ApplyDefaults(form, DefaultsOf(form, Scale), Scale);
    QVERIFY(form == expected);
}

void tst_modWindowDefaults::takesEveryValue()
{
    GuiForm form;
    form.windowTag = Text("open");
    ApplyDefaults(form, DefaultsOf(Sample(), Scale), Scale);
    GuiForm expected = Sample();
    expected.windowTag = Text("Window_nf");
    expected.GuiDefaultsState = 1;
    expected.backColor = Rgb(255, 255, 0);
    expected.panels = {Text("Ready")};
    QVERIFY(form == expected);
}

void tst_modWindowDefaults::firstConfirmationIsMarked()
{
    GuiForm form;
    for (const auto& [before, after] : {std::pair{-1, 1}, {1, 1}, {0, 0}, {7, 7}}) {
        form.GuiDefaultsState = static_cast<std::int16_t>(before);
        ApplyDefaults(form, DefaultsOf(form, Scale), Scale);
        QCOMPARE(static_cast<int>(form.GuiDefaultsState), after);
    }
}

void tst_modWindowDefaults::backgroundColorsTheWindow()
{
    GuiForm form;
    WindowDefaults values = DefaultsOf(form, Scale);
    ColorIn(values, FormColor::Background) = Text("Darkcyan");
    ColorIn(values, FormColor::Graphics) = Text("Red");
    ApplyDefaults(form, values, Scale);
    QCOMPARE(form.GuiBackgroundColor, Text("Darkcyan"));
    QCOMPARE(form.backColor, Rgb(0, 128, 128));
}

void tst_modWindowDefaults::graphicsWindowTakesItsOwnColor_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("background");
    for (const std::string_view type : WindowTypes)
        QTest::addRow("%s", type.data()) << LatinText(type)
                                         << (type.starts_with("Graphics") ? Text("Green") : Text("Brown"));
}

void tst_modWindowDefaults::graphicsWindowTakesItsOwnColor()
{
    QFETCH(QString, type);
    QFETCH(QString, background);
    GuiForm form;
    WindowDefaults values = DefaultsOf(form, Scale);
    values.windowType = type;
    ColorIn(values, FormColor::Background) = Text("Brown");
    ColorIn(values, FormColor::Graphics) = Text("Green");
    ApplyDefaults(form, values, Scale);
    QCOMPARE(form.GuiBackgroundColor, background);
    QCOMPARE(form.backColor, ColorFromName(background));
    QCOMPARE(form.GuiWindowType, type);
    QCOMPARE(form.windowTag, type);
    const WindowDefaults shown = DefaultsOf(form, Scale);
    QCOMPARE(shown.colors[1], background);
    QCOMPARE(shown.colors[6], background);
}

void tst_modWindowDefaults::unknownColorNameIsKeptAndColorsNothing()
{
    GuiForm form = Sample();
    form.GuiBackgroundColor = Text("Mauve");
    form.backColor = Rgb(1, 2, 3);
    ApplyDefaults(form, DefaultsOf(form, Scale), Scale);
    QCOMPARE(form.GuiBackgroundColor, Text("Mauve"));
    QCOMPARE(form.backColor, Rgb(1, 2, 3));
}

void tst_modWindowDefaults::measuresAreReadAsNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("twips");
    const auto row = [](const char* text, double twips) {
        QTest::newRow(text) << Text(text) << static_cast<float>(twips);
    };
    row("400", 6000);
    row(" 400 ", 6000);
    row("400 pixels", 6000);
    row("0", 0);
    row("", 0);
    row("wide", 0);
    row("-400", 0);
    row("1e300", 9'999'990);
    row("1e999", 9'999'990);
    row("-1e999", 0);
}

void tst_modWindowDefaults::measuresAreReadAsNumbers()
{
    QFETCH(QString, text);
    GuiForm form;
    WindowDefaults values = DefaultsOf(form, Scale);
    values.width = values.height = text;
    ApplyDefaults(form, values, Scale);
    QTEST(form.width, "twips");
    QTEST(form.height, "twips");
}

void tst_modWindowDefaults::measuresComeFromTheScreensFactors()
{
    GuiForm form = Sample();
    WindowDefaults values = DefaultsOf(form, OtherScale);
    QCOMPARE(values.width, Text("375"));
    QCOMPARE(values.height, Text("300"));
    values.width = values.height = Text("100");
    ApplyDefaults(form, values, OtherScale);
    QCOMPARE(form.width, 1200.0f);
    QCOMPARE(form.height, 1000.0f);
}

void tst_modWindowDefaults::untouchedMeasureStaysAsItWas()
{
    GuiForm form = Sample();
    form.width = 100;
    form.height = std::numeric_limits<float>::max();
    ApplyDefaults(form, DefaultsOf(form, Scale), Scale);
    QCOMPARE(form.width, 100.0f);
    QCOMPARE(form.height, std::numeric_limits<float>::max());
}

void tst_modWindowDefaults::emptyStatusTextIsFilled()
{
    GuiForm form = Sample();
    WindowDefaults values = DefaultsOf(form, Scale);
    values.statusText.clear();
    ApplyDefaults(form, values, Scale);
    QCOMPARE(form.panels, (std::vector{FirstPanelText, Text("Second")}));
}

void tst_modWindowDefaults::withoutStatusBarThePanelsStay()
{
    GuiForm form = Sample();
    WindowDefaults values = DefaultsOf(form, Scale);
    values.statusbar = false;
    values.statusText = Text("Other");
    ApplyDefaults(form, values, Scale);
    QVERIFY(!form.GuiStatusbarOn);
    QCOMPARE(form.panels, (std::vector{Text("Ready"), Text("Second")}));
}

void tst_modWindowDefaults::formWithoutPanelsGetsOne()
{
    GuiForm form = Sample();
    form.panels.clear();
    WindowDefaults values = DefaultsOf(form, Scale);
    QCOMPARE(values.statusText, QString());
    values.statusText = Text("Only");
    ApplyDefaults(form, values, Scale);
    QCOMPARE(form.panels, (std::vector{Text("Only")}));
}

void tst_modWindowDefaults::fontBoxStartsWithTheFormsFont_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<int>("points");
    const auto row = [](const char* size, int points) { QTest::newRow(size) << Text(size) << points; };
    row("12", 12);
    row("8.25", 8);
    row("", 10);
    row("big", 10);
    row("0", 10);
    row("-4", 10);
    row("1e300", 10);
    row("1e999", 10);
}

void tst_modWindowDefaults::fontBoxStartsWithTheFormsFont()
{
    QFETCH(QString, size);
    GuiForm form = Sample();
    form.GuiFontSize = size;
    const FontSpec font = FontOf(DefaultsOf(form, Scale));
    QCOMPARE(font.name, Text("Arial"));
    QTEST(font.size, "points");
}

OB_CORE_TEST(tst_modWindowDefaults)
#include "tst_modWindowDefaults.moc"
