// SPDX-License-Identifier: GPL-3.0-or-later
// The API wrapper and printer libraries: their size, order and shape, and every system call in them.
#include "codetools/LibraryReader.h"
#include "scilexer/modLexer.h"
#include "shell/state/modTexts.h"

#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

struct Section {
    const char* heading;
    const char* routines;
};

constexpr Section WrapperSections[] = {
    {"WINMM", "mciSendString$ sndPlaySound joyGetPos"},
    {"URLMON", "URLDownloadToFile"},
    {"KERNEL AND SHELL",
     "Sleep GetShortPathName$ lstrcmpi GetProfileString$ GetModuleFileName$ LoadLibrary FreeLibrary GetModuleHandle "
     "GlobalMemoryStatus GetDriveType ExtractIcon DrawIcon WinExec GetWindowsDirectory$ GetSystemDirectory$ "
     "ShellExecute FindExecutable$ QueryPerformanceFrequency QueryPerformanceCounter GetSpecialfolder$ "
     "SHBrowseForFolder$ ShellAbout"},
    {"WINDOW & USER STUFF",
     "MessageBox MessageBoxEx MessageBeep SystemParametersInfo SwapMouseButton IsZoomed IsWindowVisible "
     "IsWindowEnabled IsIconic GetWindowTextLength GetSysColor GetWindow GetDesktopWindow GetClassName$ "
     "GetAsyncKeyState ExitWindows CloseWindow GetClientRect GetWindowRect ShowScrollBar ClientToScreen "
     "ScreenToClient GetWindowWord GetWindowLong SetWindowLong SendMessagePtr SendMessageLong SetFocus GetWindowText$ "
     "SetParent GetParent ClipCursor ShowCursor SetCursorPos GetCursorPosX GetCursorPosY GetActiveWindow FlashWindow "
     "MoveWindow ShowWindow AlwaysOnTop SetWindowText BringWindowToTop EnableWindow SetButtonState WinHelp "
     "LeftMouseClick"},
    {"MENU STUFF:", "TrackPopupMenu AddCascadeMenu RemoveMenu InsertMenu DeleteMenu ModifyMenuBitmap "
                    "SetMenuItemBitmaps CheckMenuRadioItem CheckMenuItem EnableMenuItem ModifyMenu DrawMenuBar SetMenu "
                    "GetMenuItemID GetSubMenu GetMenu"},
    {"CONTROL CREATION STUFF",
     "CreateRiched CreateStatusWindow CreateProgressBar CreateToolTips CreateCheckbox CreateRadiobutton "
     "CreateStaticText CreateTextEdit CreateTextBox CreateButton GetDC ReleaseDC GetWindowDC CreateCompatibleDC "
     "DeleteDC Arc Chord Pie Rectangle RoundRect Ellipse DrawLine TextOut DrawText SetTextColor GetTextColor "
     "GetTextExtentPoint32 GetTextExtentPoint GetTextFace$ PatBlt StretchBlt BitBlt SetStretchBltMode "
     "GetStretchBltMode SelectObject DeleteObject CreateCompatibleBitmap CreateSolidBrush CreateHatchBrush CreatePen "
     "SetBkMode SetPixel GetPixel GetRed GetGreen GetBlue CreateEllipticRgn CreateRectRgn CreateRoundRectRgn FillRegn "
     "FrameRegn PaintRegn InvertRegn PtInRegn CreateFont BitmapWidth BitmapHeight GetCurrentPositionX "
     "GetCurrentPositionY GetStockObject SetBkColor GetBkColor GetBkMode PolyLine Polygon PolyPolygon SetPolyFillMode "
     "GetPolyFillMode SaveDC RestoreDC"},
    {"ADVAPI32.DLL STUFF", "GetUserName$"},
    {"HARD-COPY PRINTING", "Horzres Vertres Logpixelsx Logpixelsy PhysicalWidth PhysicalHeight PhysicalOffsetx "
                           "PhysicalOffsety EndDoc EndPage StartPage StartDoc PrinterDialogDC PrinterDefaultDC"},
};

constexpr char PrinterRoutines[] =
    "Horzres Vertres Logpixelsx Logpixelsy PhysicalWidth PhysicalHeight PhysicalOffsetx PhysicalOffsety EndDoc EndPage "
    "StartPage StartDoc PrinterDialogDC PrinterDefaultDC DeleteDC Arc Chord Pie Rectangle RoundRect Ellipse DrawLine "
    "TextOut SetTextColor SetBkMode SelectObject DeleteObject CreateSolidBrush CreateHatchBrush CreatePen SetPixel "
    "CreateFont GetCurrentPositionX GetCurrentPositionY GetStockObject";

// The number of arguments of each system function, by its library.
constexpr Section PublishedFunctions[] = {
    {"winmm", "joyGetPos 2 mciSendStringA 4 sndPlaySoundA 2"},
    {"urlmon", "URLDownloadToFileA 5"},
    {"ole32", "CoTaskMemFree 1"},
    {"advapi32", "GetUserNameA 2"},
    {"comctl32", "CreateStatusWindowA 4 InitCommonControls 0"},
    {"comdlg32", "PrintDlgA 1"},
    {"shell32", "ExtractIconA 3 FindExecutableA 3 SHBrowseForFolderA 1 SHGetPathFromIDListA 2 "
                "SHGetSpecialFolderLocation 3 ShellAboutA 4 ShellExecuteA 6"},
    {"kernel32", "FreeLibrary 1 GetDriveTypeA 1 GetModuleFileNameA 3 GetModuleHandleA 1 GetProfileStringA 5 "
                 "GetShortPathNameA 3 GetSystemDirectoryA 2 GetWindowsDirectoryA 2 GlobalFree 1 GlobalMemoryStatus 1 "
                 "LoadLibraryA 1 QueryPerformanceCounter 1 QueryPerformanceFrequency 1 Sleep 1 WinExec 2 lstrcmpiA 2"},
    {"user32",
     "AppendMenuA 4 BringWindowToTop 1 CheckMenuItem 3 CheckMenuRadioItem 5 ClientToScreen 2 ClipCursor 1 CloseWindow "
     "1 CreateWindowExA 12 DeleteMenu 3 DrawIcon 4 DrawMenuBar 1 DrawTextA 5 EnableMenuItem 3 EnableWindow 2 "
     "ExitWindowsEx 2 FlashWindow 2 GetActiveWindow 0 GetAsyncKeyState 1 GetClassNameA 3 GetClientRect 2 GetCursorPos "
     "1 GetDC 1 GetDesktopWindow 0 GetMenu 1 GetMenuItemID 2 GetParent 1 GetSubMenu 2 GetSysColor 1 GetWindow 2 "
     "GetWindowDC 1 GetWindowLongA 2 GetWindowRect 2 GetWindowTextA 3 GetWindowTextLengthA 1 GetWindowWord 2 "
     "InsertMenuA 5 IsIconic 1 IsWindowEnabled 1 IsWindowVisible 1 IsZoomed 1 MessageBeep 1 MessageBoxA 4 "
     "MessageBoxExA 5 ModifyMenuA 5 MoveWindow 6 ReleaseDC 2 RemoveMenu 3 ScreenToClient 2 SendMessageA 4 SetCursorPos "
     "2 SetFocus 1 SetMenu 2 SetMenuItemBitmaps 5 SetParent 2 SetWindowLongA 3 SetWindowPos 7 SetWindowTextA 2 "
     "ShowCursor 1 ShowScrollBar 3 ShowWindow 2 SwapMouseButton 1 SystemParametersInfoA 4 TrackPopupMenu 7 WinHelpA 4 "
     "mouse_event 5"},
    {"gdi32",
     "Arc 9 BitBlt 9 Chord 9 CreateCompatibleBitmap 3 CreateCompatibleDC 1 CreateDCA 4 CreateEllipticRgn 4 CreateFontA "
     "14 CreateHatchBrush 2 CreatePen 3 CreateRectRgn 4 CreateRoundRectRgn 6 CreateSolidBrush 1 DeleteDC 1 "
     "DeleteObject 1 Ellipse 5 EndDoc 1 EndPage 1 FillRgn 3 FrameRgn 5 GetBkColor 1 GetBkMode 1 GetCurrentPositionEx 2 "
     "GetDeviceCaps 2 GetObjectA 3 GetPixel 3 GetPolyFillMode 1 GetStockObject 1 GetStretchBltMode 1 GetTextColor 1 "
     "GetTextExtentPoint32A 4 GetTextExtentPointA 4 GetTextFaceA 3 InvertRgn 2 LineTo 3 MoveToEx 4 PaintRgn 2 PatBlt 6 "
     "Pie 9 PolyPolygon 4 Polygon 3 Polyline 3 PtInRegion 3 Rectangle 5 RestoreDC 2 RoundRect 7 SaveDC 1 SelectObject "
     "2 SetBkColor 2 SetBkMode 2 SetPixel 4 SetPolyFillMode 2 SetStretchBltMode 2 SetTextColor 2 StartDocA 2 StartPage "
     "1 StretchBlt 11 TextOutA 5"},
};

QStringList WordsOf(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

QByteArray BytesOf(const QString& name)
{
    const auto text = EmbeddedText(name);
    return text ? QByteArray(text->data(), static_cast<qsizetype>(text->size())) : QByteArray();
}

QByteArray Wrapper()
{
    return BytesOf(u"wrapper32.bas"_s);
}

QByteArray Printer()
{
    return BytesOf(u"printer32.bas"_s);
}

// The text of one routine between valid neighbours, as in a library.
QByteArray InALibrary(const char* lines)
{
    return "struct Point,_\nx as long,_\ny as long\n\nFunction GetRed(rgb)\n    GetRed=rgb and 255\nEnd Function\n\n" +
           QByteArray(lines);
}

} // namespace

class tst_modLibraries : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTextsHaveTheirSizes()
    {
        QCOMPARE(Wrapper().size(), 44370);
        QCOMPARE(Wrapper().count("\r\n"), 1289);
        QCOMPARE(Printer().size(), 10966);
    }

    void textsArePlainAndEveryLineEndsInCrLf()
    {
        for (const QByteArray& text : {Wrapper(), Printer()}) {
            for (const char c : text)
                QVERIFY((c >= ' ' && c <= '~') || c == '\r' || c == '\n');
            QVERIFY(text.endsWith("\r\n") && !text.endsWith("\r\n\r\n"));
            QCOMPARE(text.count('\r'), text.count("\r\n"));
            QCOMPARE(text.count('\n'), text.count("\r\n"));
        }
    }

    void wrapperHasItsStructsSectionsAndRoutinesInOrder()
    {
        QStringList expected = {u"Point"_s, u"Rect"_s, u"JOYINFO"_s};
        for (const Section& section : WrapperSections)
            expected +=
                QStringList(QLatin1Char('\'') + QString::fromLatin1(section.heading)) + WordsOf(section.routines);
        QCOMPARE(expected.size(), 3 + 8 + 174);

        const QStringList lines = LinesOf(Wrapper());
        QVERIFY(lines.first().startsWith(QLatin1String("struct Point")));
        QStringList found;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const auto named = Match(R"(^(?:struct|Function|Sub) ([\w$]+))", lines[i]);
            if (named.hasMatch())
                found.append(named.captured(1));
            if (!Match(R"(^'\*+$)", lines[i]).hasMatch())
                continue;
            QVERIFY(i + 2 < lines.size());
            QCOMPARE(lines[i + 2], lines[i]);
            found.append(lines[i + 1]);
            i += 2;
        }
        QCOMPARE(found, expected);
    }

    void printerBeginsWithTheCallOfItsSampleAndAnIndex()
    {
        const QStringList lines = LinesOf(Printer());
        QCOMPARE(lines[0], u"'remove this line to stop"_s);
        QCOMPARE(lines[1], u"'execution of sample program"_s);
        QCOMPARE(lines[2], u"GoSub [demo]"_s);
        const qsizetype end = lines.indexOf(u"End"_s);
        QVERIFY(end > 0);
        const QMap<QString, QStringList> routines = RoutinesOf(Printer());
        QStringList index;
        for (const QString& line : lines.mid(3, end - 3)) {
            QVERIFY(line.startsWith(QLatin1Char('\'')));
            const auto entry = Match(R"(^'(([\w$]+)[^:]*): )", line);
            if (!entry.hasMatch() || !routines.contains(entry.captured(2)))
                continue;
            index.append(entry.captured(2));
            // The entry shows how to call the routine.
            QCOMPARE(entry.captured(1), routines[index.last()].first().section(QLatin1Char(' '), 1));
        }
        QCOMPARE(index, WordsOf(PrinterRoutines));
    }

    void printerHasItsRoutinesInOrderAndEndsWithItsSample()
    {
        QStringList found;
        for (const QString& line : LinesOf(Printer())) {
            const auto named = Match(R"(^(?:(?:Function|Sub) ([\w$]+)|(\[.*\]))$)",
                                     line.section(QLatin1Char('('), 0, 0).section(QLatin1Char(' '), 0, 1));
            if (named.hasMatch())
                found.append(named.captured(1) + named.captured(2));
        }
        QCOMPARE(found, WordsOf(PrinterRoutines) + QStringList(u"[demo]"_s));
    }

    void theSampleCallsRoutinesThatThereAreAndEndsInAReturn()
    {
        const QStringList lines = LinesOf(Printer());
        const QStringList sample = lines.mid(lines.indexOf(u"[demo]"_s) + 1);
        QCOMPARE(sample.last().trimmed(), u"return"_s);
        const QMap<QString, QStringList> routines = RoutinesOf(Printer());
        QStringList used;
        for (const QString& line : sample) {
            const QString code = WithoutComment(line).trimmed();
            const auto call = Match(R"(^call (\w+) (.*)$)", code);
            const auto function = Match(R"(\b((?-i:[A-Z])\w+)\((.*)\)(?:<\d+ then)?$)", code);
            const QRegularExpressionMatch& match = call.hasMatch() ? call : function;
            if (!match.hasMatch())
                continue;
            used.append(match.captured(1));
            QVERIFY2(routines.contains(used.last()), qPrintable(line));
            const auto head = Match(R"(^(Function|Sub) \w+[ (](.*?)\)?$)", routines[used.last()].first());
            QCOMPARE(head.captured(1), call.hasMatch() ? u"Sub"_s : u"Function"_s);
            QCOMPARE(Split(match.captured(2), QLatin1Char(',')).size(),
                     Split(head.captured(2), QLatin1Char(',')).size());
        }
        for (const char* routine : {"PrinterDialogDC", "StartDoc", "StartPage", "Logpixelsx", "CreateFont", "CreatePen",
                                    "CreateSolidBrush", "RoundRect", "TextOut", "EndPage", "EndDoc"})
            QVERIFY2(used.contains(QLatin1String(routine)), routine);
        QCOMPARE(used.mid(used.indexOf(u"EndDoc"_s)).count(u"DeleteObject"_s), 3);
        QCOMPARE(used.last(), u"DeleteDC"_s);
    }

    void sharedRoutinesAreTheSameInBothTexts()
    {
        const QMap<QString, QStringList> wrapper = RoutinesOf(Wrapper());
        const QMap<QString, QStringList> printer = RoutinesOf(Printer());
        QCOMPARE(wrapper.size(), 174);
        QCOMPARE(printer.size(), 35);
        for (auto routine = printer.begin(); routine != printer.end(); ++routine)
            QCOMPARE(wrapper.value(routine.key()), routine.value());
    }

    void noRoutineNeedsAnother()
    {
        const QMap<QString, QStringList> routines = RoutinesOf(Wrapper());
        for (auto routine = routines.begin(); routine != routines.end(); ++routine) {
            static const QRegularExpression uses(QStringLiteral(R"(\bcall (\w+)|\b([A-Za-z]\w+\$?)\()"));
            for (const QString& line : routine.value().mid(1)) {
                for (const QRegularExpressionMatch& use : uses.globalMatch(WithoutComment(line))) {
                    const QString name = use.captured(1) + use.captured(2);
                    QVERIFY2(!routines.contains(name), qPrintable(routine.key() + QLatin1String(" needs ") + name));
                }
            }
        }
    }

    void bothTextsAreValid()
    {
        for (const QByteArray& text : {Wrapper(), Printer()}) {
            const QStringList troubles = LibraryReader(text).troubles;
            QVERIFY2(troubles.isEmpty(), qPrintable(troubles.join(QLatin1String("; "))));
        }
    }

    void everyBlockIsClosedForTheLexer()
    {
        for (const QByteArray& text : {Wrapper(), Printer()}) {
            std::vector<unsigned char> styles(static_cast<std::size_t>(text.size()));
            const std::string_view view(text.constData(), static_cast<std::size_t>(text.size()));
            QCOMPARE(LexText(view, KeywordSet("function sub end if then struct calldll as"), styles.data()), 0);
        }
    }

    void printerMeasuresRequestTheirOwnNumber()
    {
        const std::pair<const char*, int> numbers[] = {
            {"Horzres", 8},         {"Vertres", 10},         {"Logpixelsx", 88},       {"Logpixelsy", 90},
            {"PhysicalWidth", 110}, {"PhysicalHeight", 111}, {"PhysicalOffsetx", 112}, {"PhysicalOffsety", 113}};
        const QMap<QString, QStringList> routines = RoutinesOf(Printer());
        for (const auto& [name, number] : numbers)
            QVERIFY2(routines.value(QLatin1String(name))
                         .join(QLatin1Char(' '))
                         .contains(u"hDC as ulong, %1 as long, %2 as long"_s.arg(number).arg(QLatin1String(name))),
                     name);
    }

    void everyCallHasTheArgumentsOfThePublishedFunction()
    {
        QSet<QString> expected;
        for (const Section& library : PublishedFunctions) {
            const QStringList words = WordsOf(library.routines);
            for (qsizetype i = 0; i + 1 < words.size(); i += 2)
                expected.insert(u"%1 %2 %3"_s.arg(QLatin1String(library.heading), words[i], words[i + 1]));
        }
        const QSet<QString> found = LibraryReader(Wrapper()).published;
        QCOMPARE(QStringList((found - expected).values()).join(QLatin1String("; ")), QString());
        QCOMPARE(QStringList((expected - found).values()).join(QLatin1String("; ")), QString());
        QVERIFY((LibraryReader(Printer()).published - expected).isEmpty());
    }

    void theReaderFindsMistakes_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("trouble");
        int number = 0;
        const auto row = [&number](const char* trouble, const char* lines) {
            QByteArray text = InALibrary(lines);
            text.replace('\n', "\r\n");
            QTest::addRow("%d %s", ++number, trouble) << text << QString::fromLatin1(trouble);
        };
        row("", "Function IsIconic(hW)\n    CallDLL #user32, \"IsIconic\",_\n      hW as ulong, IsIconic As Boolean\n"
                "End Function\n");
        row("",
            "Sub Place\n    CallDLL #user32, \"GetCursorPos\", Point as struct, r as boolean\n    n=Point.x.struct\n"
            "End Sub\n");
        row("", "Sub Free pidl\n    open \"ole32\" for dll as #o\n    CallDLL #o, \"CoTaskMemFree\", pidl as ulong, "
                "r as void\n    close #o\nEnd Sub\n");
        row("", "Function One(a)\n    if a then\n        One=1\n    else\n        One=2\n    end if\nEnd Function\n");
        row("is too long", ("'" + QByteArray(100, 'x') + "\n").constData());
        row("ends in a space", "n=1 \n");
        row("has an odd number of quotes", "a$=\"x\n");
        row("has parentheses that do not match", "n=int(3\n");
        row("has parentheses that do not match", "n=3)+(4\n");
        row("leaves a routine open", "Sub A\n    n=1\n");
        row("begins a routine inside another", "Sub A\nSub B\nEnd Sub\n");
        row("ends what has not begun", "Sub A\nEnd Function\n");
        row("ends what has not begun", "End Sub\n");
        row("has parentheses for a sub", "Sub A(b)\nEnd Sub\n");
        row("has parentheses for a sub", "Function A b\n    A=1\nEnd Function\n");
        row("ends a function without a value", "Function A(b)\n    b=1\nEnd Function\n");
        row("ends a function without a value", "Function A(b)\n    if b then\n        A=1\n    end if\nEnd Function\n");
        row("ends a function without a value",
            "Function A()\n    CallDLL #user32, \"GetDesktopWindow\", B as ulong\nEnd Function\n");
        row("ends a routine inside of an If", "Sub A b\n    if b then\nEnd Sub\n");
        row("is missing after a continued line", "CallDLL #user32, \"X\",_\n\nn=1\n");
        row("is continued at the end", "CallDLL #user32, \"X\",_\n");
        row("is continued, but does not end so", "CallDLL #user32, \"X\",_ 'why\nr as void\n");
        row("calls a library that is not open", "CallDLL #winspool, \"X\", r as void\n");
        row("leaves a handle open", "Sub A\n    open \"ole32\" for dll as #o\nEnd Sub\n");
        row("closes a handle on another path",
            "Sub A\n    open \"ole32\" for dll as #o\n    if n then\n        close #o\n    end if\nEnd Sub\n");
        row("calls a library that is not open", "Sub A\n    open \"ole32\" for dll as #o\n    close #o\n"
                                                "    CallDLL #o, \"X\", r as void\nEnd Sub\n");
        row("leaves a routine in its middle", "Sub A\n    if n then return\nEnd Sub\n");
        row("is no whole call", "CallDLL #user32, \"X\"\n");
        row("has a result that is none", "CallDLL #user32, \"X\", n as long, a$ as ptr\n");
        row("has a result that is none", "CallDLL #user32, \"X\", 0 as long\n");
        row("has an argument of a wrong type", "CallDLL #user32, \"X\", n, r as long\n");
        row("has an argument of a wrong type", "CallDLL #user32, \"X\", n as int, r as long\n");
        row("has an argument of a wrong type", "CallDLL #user32, \"X\", n as void, r as long\n");
        row("has an argument of a wrong type", "CallDLL #user32, \"X\", a$ as long, r as long\n");
        row("has an argument of a wrong type", "CallDLL #user32, \"X\", n as ptr, r as long\n");
        row("has an argument of a wrong type", "CallDLL #user32, \"X\", Points as struct, r as long\n");
        row("names a member that no struct has", "n=Point.z.struct\n");
        row("names a member that no struct has", "n=len(Other.struct)\n");
        row("has a member without a type", "struct Size, x as long, y\n");
        row("has a text that is no ptr", "struct Size, x as ptr\n");
    }

    void theReaderFindsMistakes()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, trouble);
        const QString found = LibraryReader(text).troubles.join(QLatin1String("; "));
        if (trouble.isEmpty())
            QCOMPARE(found, QString());
        else
            QVERIFY2(found.contains(trouble), qPrintable(found));
    }
};

QTEST_GUILESS_MAIN(tst_modLibraries)
#include "tst_modLibraries.moc"
