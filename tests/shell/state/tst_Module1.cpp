// SPDX-License-Identifier: GPL-3.0-or-later
// The shared routines: colours by name, usable paths, texts that are written beside the program.
#include "shell/state/Module1.h"

#include "core/CoreBench.h"
#include "editor/modFind.h"
#include "shell/bench/modStart.h"
#include "shell/state/modTexts.h"

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
        QTest::newRow("Black") << QStringLiteral("Black") << ColorRef{0};
        QTest::newRow("White") << QStringLiteral("White") << ColorRef{16777215};
        QTest::newRow("Lightgray") << QStringLiteral("Lightgray") << ColorRef{12632256};
        QTest::newRow("Darkgray") << QStringLiteral("Darkgray") << ColorRef{8421504};
        QTest::newRow("Red") << QStringLiteral("Red") << ColorRef{255};
        QTest::newRow("Darkred") << QStringLiteral("Darkred") << ColorRef{128};
        QTest::newRow("Yellow") << QStringLiteral("Yellow") << ColorRef{65535};
        QTest::newRow("Brown") << QStringLiteral("Brown") << ColorRef{32896};
        QTest::newRow("Green") << QStringLiteral("Green") << ColorRef{65280};
        QTest::newRow("Darkgreen") << QStringLiteral("Darkgreen") << ColorRef{32768};
        QTest::newRow("Cyan") << QStringLiteral("Cyan") << ColorRef{16776960};
        QTest::newRow("Darkcyan") << QStringLiteral("Darkcyan") << ColorRef{8421376};
        QTest::newRow("Blue") << QStringLiteral("Blue") << ColorRef{16711680};
        QTest::newRow("Darkblue") << QStringLiteral("Darkblue") << ColorRef{8388608};
        QTest::newRow("Pink") << QStringLiteral("Pink") << ColorRef{16711935};
        QTest::newRow("Darkpink") << QStringLiteral("Darkpink") << ColorRef{8388736};
        QTest::newRow("Buttonface") << QStringLiteral("Buttonface") << ColorRef{0x8000000F};
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
        const QString file = bench->Put(QStringLiteral("orchard.exe"), "x");
        QVERIFY(IsUsablePath(file));
        QVERIFY(IsUsablePath(QStringLiteral("orchard.exe")));
        QVERIFY(!IsUsablePath({}));
        QVERIFY(!IsUsablePath(bench->Path(QStringLiteral("run.exe"))));
        QVERIFY(!IsUsablePath(bench->Path({})));
        // Not even if there is such a file.
        bench->Put(QStringLiteral("no path"), "x");
        QVERIFY(!IsUsablePath(QStringLiteral("no path")));
        bench->Put(QStringLiteral("No Path"), "x");
        QVERIFY(!IsUsablePath(QStringLiteral("No Path")));
    }

    void theLibrariesAreEmbeddedByNumber()
    {
        for (const int id : {100, 105, 0, -1})
            QVERIFY(!EmbeddedText(id, QStringLiteral("CUSTOM")));
        QVERIFY(!EmbeddedText(101, QStringLiteral("BITMAP")));
        QVERIFY(!EmbeddedText(QStringLiteral("nothing.bas")));
        QCOMPARE(EmbeddedText(101, QStringLiteral("CUSTOM")), EmbeddedText(QStringLiteral("wrapper32.bas")));
        QCOMPARE(EmbeddedText(102, QStringLiteral("CUSTOM")), EmbeddedText(QStringLiteral("printer32.bas")));
        QCOMPARE(EmbeddedText(103, QStringLiteral("CUSTOM")), EmbeddedText(QStringLiteral("jpeg.bas")));
    }

    void anUnknownResourceWritesNothing()
    {
        ExtractResource(100, QStringLiteral("CUSTOM"), bench->Path(QStringLiteral("out.bas")));
        ExtractResource(101, QStringLiteral("OTHER"), bench->Path(QStringLiteral("out.bas")));
        QVERIFY(!QFile::exists(bench->Path(QStringLiteral("out.bas"))));
    }

    void aResourceIsWrittenAtTheStartAndALongerFileKeepsItsTail()
    {
        const QByteArray text = LibraryOrNothing();
        const QString path = bench->Path(QStringLiteral("wrapper32.bas"));
        ExtractResource(101, QStringLiteral("CUSTOM"), path);
        if (text.isEmpty()) {
            QVERIFY2(!QFile::exists(path), "nothing is embedded, and yet a file was written");
            return;
        }
        QCOMPARE(CoreBench::Get(path), text);

        CoreBench::PutFile(path, QByteArray(text.size(), '#') + "'my own routines\r\n");
        ExtractResource(101, QStringLiteral("CUSTOM"), path);
        QCOMPARE(CoreBench::Get(path), text + "'my own routines\r\n");

        CoreBench::PutFile(path, "short");
        ExtractResource(101, QStringLiteral("CUSTOM"), path);
        QCOMPARE(CoreBench::Get(path), text);
    }

    void anErrorInWritingAResourceIsSwallowed()
    {
        ExtractResource(101, QStringLiteral("CUSTOM"), bench->Path(QStringLiteral("gone/wrapper32.bas")));
        ExtractResource(101, QStringLiteral("CUSTOM"), bench->Path({}));
        QVERIFY(!QFile::exists(bench->Path(QStringLiteral("gone"))));
    }

    void theStatusTextIsTheFirstPanel()
    {
        SetStatusText(QStringLiteral("File saved as x"));
        QCOMPARE(bench->form.status, QStringLiteral("File saved as x"));
        MainForm = nullptr;
        SetStatusText(QStringLiteral("nobody there"));
        QCOMPARE(bench->form.status, QStringLiteral("File saved as x"));
    }

    void theStateStartsWithItsDefaults()
    {
        GuiDesign().form.GuiHandleName = QStringLiteral("x");
        RecentCount = 3;
        ToolImageIndex = 0;
        bench->Open(QStringLiteral("a.bas"));
        ResetBench();
        QVERIFY(MainForm == nullptr);
        QVERIFY(Documents.empty());
        QCOMPARE(Finding().FoundPos, std::intptr_t{-1});
        QCOMPARE(RecentCount, 0);
        QCOMPARE(ToolImageIndex, 1);
        QCOMPARE(GuiDesign().form.GuiHandleName, QStringLiteral("main"));
        QCOMPARE(GuiDesign().form.GuiWindowType, QStringLiteral("Window"));
        QCOMPARE(GuiDesign().form.GuiFontName, QStringLiteral("ms sans serif"));
        QCOMPARE(GuiDesign().form.GuiFontSize, QStringLiteral("10"));
        QCOMPARE(GuiDesign().form.GuiForegroundColor, QStringLiteral("Black"));
        QCOMPARE(GuiDesign().form.GuiBackgroundColor, QStringLiteral("Buttonface"));
        for (const QString& color : {GuiDesign().form.GuiTexteditorColor, GuiDesign().form.GuiTextboxColor,
                                     GuiDesign().form.GuiComboboxColor, GuiDesign().form.GuiListboxColor})
            QCOMPARE(color, QStringLiteral("White"));
        for (const QString& path : RecentFiles)
            QCOMPARE(path, QStringLiteral("untitled"));
    }

private:
    static QByteArray LibraryOrNothing()
    {
        const auto text = EmbeddedText(101, QStringLiteral("CUSTOM"));
        return text ? QByteArray(text->data(), static_cast<qsizetype>(text->size())) : QByteArray();
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_Module1)
#include "tst_Module1.moc"
