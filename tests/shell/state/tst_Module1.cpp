// SPDX-License-Identifier: GPL-3.0-or-later
// The shared routines: colours by name, usable paths, texts that are written beside the program.
#include "shell/state/Module1.h"

#include "core/CoreBench.h"
#include "editor/modFind.h"
#include "shell/bench/modStart.h"
#include "shell/state/modTexts.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_Module1 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void aColorIsFoundByItsNameAndItsValue_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<ColorRef>("value");
        QTest::newRow("Black") << u"Black"_s << ColorRef{0};
        QTest::newRow("White") << u"White"_s << ColorRef{16777215};
        QTest::newRow("Lightgray") << u"Lightgray"_s << ColorRef{12632256};
        QTest::newRow("Darkgray") << u"Darkgray"_s << ColorRef{8421504};
        QTest::newRow("Red") << u"Red"_s << ColorRef{255};
        QTest::newRow("Darkred") << u"Darkred"_s << ColorRef{128};
        QTest::newRow("Yellow") << u"Yellow"_s << ColorRef{65535};
        QTest::newRow("Brown") << u"Brown"_s << ColorRef{32896};
        QTest::newRow("Green") << u"Green"_s << ColorRef{65280};
        QTest::newRow("Darkgreen") << u"Darkgreen"_s << ColorRef{32768};
        QTest::newRow("Cyan") << u"Cyan"_s << ColorRef{16776960};
        QTest::newRow("Darkcyan") << u"Darkcyan"_s << ColorRef{8421376};
        QTest::newRow("Blue") << u"Blue"_s << ColorRef{16711680};
        QTest::newRow("Darkblue") << u"Darkblue"_s << ColorRef{8388608};
        QTest::newRow("Pink") << u"Pink"_s << ColorRef{16711935};
        QTest::newRow("Darkpink") << u"Darkpink"_s << ColorRef{8388736};
        QTest::newRow("Buttonface") << u"Buttonface"_s << ColorRef{0x8000000F};
    }

    void aColorIsFoundByItsNameAndItsValue()
    {
        QFETCH(QString, name);
        QFETCH(ColorRef, value);
        QCOMPARE(ColorFromName(name), value);
        QCOMPARE(NameFromColor(QString::number(static_cast<qint32>(value))), name);
        QCOMPARE(NameFromColor(QLatin1Char(' ') + QString::number(static_cast<qint32>(value)) + QLatin1Char(' ')),
                 name);
    }

    void thereAreSeventeenColors()
    {
        QCOMPARE(ColorValue.size(), std::size_t{17});
        QCOMPARE(ColorName.size(), std::size_t{17});
    }

    void anUnknownColorNameGivesNothing_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"red", "RED", "Red ", "Purple", "", "255"})
            QTest::newRow(*name == '\0' ? "empty" : name) << QString::fromLatin1(name);
    }

    void anUnknownColorNameGivesNothing()
    {
        QFETCH(QString, name);
        QCOMPARE(ColorFromName(name), ColorRef{0});
    }

    void anUnknownColorValueGivesNothing_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text :
             {"254", "", "Red", "255x", "0.5", "-1", "4294967296", "4294967551", "-4294967041", "99999999999999999999"})
            QTest::newRow(*text == '\0' ? "empty" : text) << QString::fromLatin1(text);
    }

    void anUnknownColorValueGivesNothing()
    {
        QFETCH(QString, text);
        QCOMPARE(NameFromColor(text), QString());
    }

    void aPathIsUsableWhenItNamesAFile()
    {
        const QString file = bench->Put(u"orchard.exe"_s, "x");
        QVERIFY(IsUsablePath(file));
        QVERIFY(IsUsablePath(u"orchard.exe"_s));
        QVERIFY(!IsUsablePath({}));
        QVERIFY(!IsUsablePath(bench->Path(u"run.exe"_s)));
        QVERIFY(!IsUsablePath(bench->Path({})));
        // Not even if there is such a file.
        bench->Put(u"no path"_s, "x");
        QVERIFY(!IsUsablePath(u"no path"_s));
        bench->Put(u"No Path"_s, "x");
        QVERIFY(!IsUsablePath(u"No Path"_s));
    }

    void theLibrariesAreEmbeddedByNumber()
    {
        for (const int id : {100, 105, 0, -1})
            QVERIFY(!EmbeddedText(id, u"CUSTOM"_s));
        QVERIFY(!EmbeddedText(101, u"BITMAP"_s));
        QVERIFY(!EmbeddedText(u"nothing.bas"_s));
        QCOMPARE(EmbeddedText(101, u"CUSTOM"_s), EmbeddedText(u"wrapper32.bas"_s));
        QCOMPARE(EmbeddedText(102, u"CUSTOM"_s), EmbeddedText(u"printer32.bas"_s));
        QCOMPARE(EmbeddedText(103, u"CUSTOM"_s), EmbeddedText(u"jpeg.bas"_s));
    }

    void anUnknownResourceWritesNothing()
    {
        ExtractResource(100, u"CUSTOM"_s, bench->Path(u"out.bas"_s));
        ExtractResource(101, u"OTHER"_s, bench->Path(u"out.bas"_s));
        QVERIFY(!QFile::exists(bench->Path(u"out.bas"_s)));
    }

    void aResourceIsWrittenAtTheStartAndALongerFileKeepsItsTail()
    {
        const QByteArray text = LibraryOrNothing();
        const QString path = bench->Path(u"wrapper32.bas"_s);
        ExtractResource(101, u"CUSTOM"_s, path);
        if (text.isEmpty()) {
            QVERIFY2(!QFile::exists(path), "nothing is embedded, and yet a file was written");
            return;
        }
        QCOMPARE(CoreBench::Get(path), text);

        CoreBench::PutFile(path, QByteArray(text.size(), '#') + "'my own routines\r\n");
        ExtractResource(101, u"CUSTOM"_s, path);
        QCOMPARE(CoreBench::Get(path), text + "'my own routines\r\n");

        CoreBench::PutFile(path, "short");
        ExtractResource(101, u"CUSTOM"_s, path);
        QCOMPARE(CoreBench::Get(path), text);
    }

    void anErrorInWritingAResourceIsSwallowed()
    {
        ExtractResource(101, u"CUSTOM"_s, bench->Path(u"gone/wrapper32.bas"_s));
        ExtractResource(101, u"CUSTOM"_s, bench->Path({}));
        QVERIFY(!QFile::exists(bench->Path(u"gone"_s)));
    }

    void theStatusTextIsTheFirstPanel()
    {
        SetStatusText(u"File saved as x"_s);
        QCOMPARE(bench->form.status, u"File saved as x"_s);
        MainForm = nullptr;
        SetStatusText(u"nobody there"_s);
        QCOMPARE(bench->form.status, u"File saved as x"_s);
    }

    void theStateStartsWithItsDefaults()
    {
        GuiDesign().form.GuiHandleName = u"x"_s;
        RecentCount = 3;
        ToolImageIndex = 0;
        bench->Open(u"a.bas"_s);
        ResetBench();
        QVERIFY(MainForm == nullptr);
        QVERIFY(Documents.empty());
        QCOMPARE(Finding().FoundPos, std::intptr_t{-1});
        QCOMPARE(RecentCount, 0);
        QCOMPARE(ToolImageIndex, 1);
        QCOMPARE(GuiDesign().form.GuiHandleName, u"main"_s);
        QCOMPARE(GuiDesign().form.GuiWindowType, u"Window"_s);
        QCOMPARE(GuiDesign().form.GuiFontName, u"ms sans serif"_s);
        QCOMPARE(GuiDesign().form.GuiFontSize, u"10"_s);
        QCOMPARE(GuiDesign().form.GuiForegroundColor, u"Black"_s);
        QCOMPARE(GuiDesign().form.GuiBackgroundColor, u"Buttonface"_s);
        for (const QString& color : {GuiDesign().form.GuiTexteditorColor, GuiDesign().form.GuiTextboxColor,
                                     GuiDesign().form.GuiComboboxColor, GuiDesign().form.GuiListboxColor})
            QCOMPARE(color, u"White"_s);
        for (const QString& path : RecentFiles)
            QCOMPARE(path, u"untitled"_s);
    }

private:
    static QByteArray LibraryOrNothing()
    {
        const auto text = EmbeddedText(101, u"CUSTOM"_s);
        return text ? QByteArray(text->data(), static_cast<qsizetype>(text->size())) : QByteArray();
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_Module1)
#include "tst_Module1.moc"
