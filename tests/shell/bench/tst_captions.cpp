// SPDX-License-Identifier: GPL-3.0-or-later
// The captions and tool tips of the windows, in one table against the Designer files.
#include <QFile>
#include <QHash>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

struct Row {
    const char* window; // its Designer file below src, without the extension
    const char* control;
    const char* property;
    const char* caption; // without mnemonics, unless the mnemonic is fixed too; "" for a property that is not set
};

constexpr Row Rows[] = {
    {"codetools/frmArray", "frmArray", "windowTitle", "Array Maker"},
    {"codetools/frmArray", "Label1", "text", "Array &Name:"},
    {"codetools/frmArray", "Label2", "text", "&Item to Add:"},
    {"codetools/frmArray", "Frame1", "title", "Type:"},
    {"codetools/frmArray", "optNumeric", "text", "Numeric"},
    {"codetools/frmArray", "optString", "text", "String$"},
    {"codetools/frmArray", "cmdAdd", "text", "Add Item"},
    {"codetools/frmArray", "cmdAdd", "toolTip", "Click to add current item to array."},
    {"codetools/frmArray", "OKButton", "text", "Create and Exit"},
    {"codetools/frmArray", "OKButton", "toolTip", "Create array and exit."},
    {"codetools/frmArray", "CancelButton", "text", "Cancel"},
    {"codetools/frmArray", "CancelButton", "toolTip", "Exit without creating the array."},
    {"codetools/frmArray", "Text1", "toolTip", "Type array name here."},
    {"codetools/frmArray", "Text2", "toolTip", "Type item name here."},
    {"codetools/frmKey", "frmKey", "windowTitle", "Key Codes"},
    {"codetools/frmKey", "cmdDone", "text", "Done"},
    {"codetools/frmMB", "frmMB", "windowTitle", "MessageBox Maker"},
    {"codetools/frmMB", "grpIcon", "title", "Icon:"},
    {"codetools/frmMB", "grpButtons", "title", "Buttons:"},
    {"codetools/frmMB", "optOK0", "text", "OK"},
    {"codetools/frmMB", "optOK0", "toolTip", "OK Button"},
    {"codetools/frmMB", "optOK1", "text", "OK    Cancel"},
    {"codetools/frmMB", "optOK1", "toolTip", "OK Button and Cancel Button"},
    {"codetools/frmMB", "optOK2", "text", "Yes   No"},
    {"codetools/frmMB", "optOK2", "toolTip", "Yes Button and No Button"},
    {"codetools/frmMB", "optOK3", "text", "Yes   No   Cancel"},
    {"codetools/frmMB", "optOK3", "toolTip", "Yes, No and Cancel Buttons"},
    {"codetools/frmMB", "optOK4", "text", "Retry   Cancel"},
    {"codetools/frmMB", "optOK4", "toolTip", ""},
    {"codetools/frmMB", "optOK5", "text", "Abort   Retry   Ignore"},
    {"codetools/frmMB", "optOK5", "toolTip", "Abort, Retry and Ignore Buttons"},
    {"codetools/frmMB", "cmdCreate", "text", "Create"},
    {"codetools/frmMB", "cmdCreate", "toolTip", ""},
    {"codetools/frmMB", "cmdTest", "text", "Preview"},
    {"codetools/frmMB", "cmdTest", "toolTip", "See the message box!"},
    {"codetools/frmMenuMaker", "frmMenuMaker", "windowTitle", "Menu Maker"},
    {"codetools/frmMenuMaker", "Label1", "text", "Menu Name:"},
    {"codetools/frmMenuMaker", "Text1", "text", "Menu Name"},
    {"codetools/frmMenuMaker", "Text1", "toolTip", "Type menu name here"},
    {"codetools/frmMenuMaker", "Label2", "text", "Item Name:"},
    {"codetools/frmMenuMaker", "Text2", "text", "Item Name"},
    {"codetools/frmMenuMaker", "Text2", "toolTip", "Type item name here"},
    {"codetools/frmMenuMaker", "Label3", "text", "Item Branch Label:"},
    {"codetools/frmMenuMaker", "Text3", "text", "BranchLabel"},
    {"codetools/frmMenuMaker", "Text3", "toolTip", "Type branch label here"},
    {"codetools/frmMenuMaker", "Label4", "text", "Window Handle:"},
    {"codetools/frmMenuMaker", "Text4", "text", "#main"},
    {"codetools/frmMenuMaker", "Text4", "toolTip", "Type window handle here"},
    {"codetools/frmMenuMaker", "optType0", "text", "Regular Menu"},
    {"codetools/frmMenuMaker", "optType1", "text", "Popup Menu"},
    {"codetools/frmMenuMaker", "cmdAdd", "text", "Add Item"},
    {"codetools/frmMenuMaker", "cmdCopy", "text", "Copy and Exit"},
    {"codetools/frmMenuMaker", "cmdCancel", "text", "Cancel"},
    {"codetools/frmStylebits", "chkEx", "text", "Extended Styles"},
    {"codetools/frmStylebits", "optAdd", "text", "Add Bits"},
    {"codetools/frmStylebits", "optRemove", "text", "Remove  Bits"},
    {"codetools/frmStylebits", "cmdCopy", "text", "Copy and Exit"},
    {"codetools/frmStylebits", "cmdHelp", "text", "Help"},
    {"codetools/frmStylebits", "cmdCancel", "text", "Cancel"},
    {"codetools/frmStylebits", "lblObject", "text", "GUI Objects"},
    {"codetools/frmStylebits", "lblBits", "text", "Possible Stylebits. Check all desired bits."},
    {"codetools/frmStylebits", "lstBits", "toolTip", "Possible Style Bits"},
    {"codetools/frmTip", "frmTip", "windowTitle", "Tip of the Day"},
    {"codetools/frmTip", "cmdNextTip", "text", "&Next Tip"},
    {"codetools/frmTip", "cmdOK", "text", "OK"},
    {"codetools/frmTip", "chkLoadTipsAtStartup", "text", "&Show Tips at Startup"},
    {"editor/frmCodeExplorer", "lblDrives", "text", "Drives"},
    {"editor/frmCodeExplorer", "lblDirectories", "text", "Directories"},
    {"editor/frmCodeExplorer", "lblSelected", "text", "Selected Filename:"},
    {"editor/frmCodeExplorer", "lblPreview", "text", "Preview first 2000 bytes of code:"},
    {"editor/frmCodeExplorer", "cmdOpen", "text", "&Open"},
    {"editor/frmCodeExplorer", "cmdExit", "text", "E&xit"},
    {"editor/frmFind", "frmFind", "windowTitle", "Find and Replace"},
    {"editor/frmFind", "OKButton", "text", "&Find"},
    {"editor/frmFind", "OKButton", "toolTip", "Find Now"},
    {"editor/frmFind", "cmdReplace", "text", "&Replace"},
    {"editor/frmFind", "cmdReplace", "toolTip", "Replace selection."},
    {"editor/frmFind", "cmdReplaceAll", "text", "Replace &All"},
    {"editor/frmFind", "cmdReplaceAll", "toolTip", "Replace all instances."},
    {"editor/frmFind", "CancelButton", "text", "&Cancel"},
    {"editor/frmFind", "CancelButton", "toolTip", "Don't find."},
    {"editor/frmFind", "Check1", "text", "Case Sensitive"},
    {"editor/frmFind", "Check1", "toolTip", "Search is case sensitive."},
    {"editor/frmFind", "Check2", "text", "Whole Word"},
    {"editor/frmFind", "Check2", "toolTip", "Search for whole word."},
    {"editor/frmFind", "optStart0", "text", "From Start"},
    {"editor/frmFind", "optStart1", "text", "From Current"},
    {"editor/frmFind", "lblFind", "text", "Find:"},
    {"editor/frmFind", "lblReplace", "text", "Replace with:"},
    {"editor/frmFind", "Text1", "toolTip", "Type word to find here."},
    {"editor/frmFind", "Text2", "toolTip", "Type replacement text."},
    {"editor/frmKeywords", "frmKeywords", "windowTitle", "Edit Custom Keywords"},
    {"editor/frmKeywords", "Label1", "text", "Custom keywords to add to list for syntax coloring:"},
    {"editor/frmKeywords", "Label2", "text", "Type desired words, separated by spaces."},
    {"editor/frmKeywords", "cmdOkay", "text", "Okay"},
    {"editor/frmKeywords", "cmdCancel", "text", "Cancel"},
    {"editor/frmKeywords", "cmdDelete", "text", "Delete Custom Keywords"},
    {"editor/frmSnip", "frmSnip", "windowTitle", "Snippet Bench"},
    {"editor/frmSnip", "Label1", "text", "Existing Snippets. Click to select one."},
    {"editor/frmSnip", "Label2", "text", "Snippet Name:"},
    {"editor/frmSnip", "txtName", "toolTip", "Snippet Name"},
    {"editor/frmSnip", "txtSnipDisplay", "toolTip", "Create and edit snippets here."},
    {"editor/frmSnip", "cmdNew", "text", "&New"},
    {"editor/frmSnip", "cmdNew", "toolTip", "Save this snippet to disk."},
    {"editor/frmSnip", "cmdSave", "text", "&Save"},
    {"editor/frmSnip", "cmdSave", "toolTip", "Save this snippet to disk."},
    {"editor/frmSnip", "cmdDelete", "text", "&Delete"},
    {"editor/frmSnip", "cmdDelete", "toolTip", "Delete this snippet."},
    {"editor/frmSnip", "cmdCopy", "text", "&Copy"},
    {"editor/frmSnip", "cmdCopy", "toolTip", "Copy this snippet to the clipboard."},
    {"editor/frmSnip", "cmdPaste", "text", "&Insert"},
    {"editor/frmSnip", "cmdPaste", "toolTip", "Paste clipboard contents at cursor position."},
    {"editor/frmSnip", "cmdPasteNew", "text", "&Paste"},
    {"editor/frmSnip", "cmdPasteNew", "toolTip", "Paste new snippet from clipboard."},
    {"editor/frmSnip", "cmdExit", "text", "E&xit"},
    {"editor/frmSnip", "cmdExit", "toolTip", ""},
    {"editor/frmSyntax", "frmSyntax", "windowTitle", "Syntax Viewer"},
    {"editor/frmSyntax", "Label1", "text", "&Keywords:"},
    {"editor/frmSyntax", "cmdCopy", "text", "Copy and E&xit"},
    {"editor/frmSyntax", "CancelButton", "text", "Cancel"},
    {"engine/package/frmPackage", "frmPackage", "windowTitle", "Packaging Wizard"},
    {"engine/package/frmPackage", "lblInstruct", "text",
     "Click on existing file names and drag to the Package Folder.  Remove files by dragging them out of the Package "
     "Folder"},
    {"engine/package/frmPackage", "chkZip", "text", "Zip Files in Package Folder"},
    {"engine/run/dlgShowVar", "dlgShowVar", "windowTitle", "Variables"},
    {"engine/run/dlgShowVar", "cmdGoto", "text", "Go To Line"},
    {"engine/run/dlgShowVar", "cmdExit", "text", "Close"},
    {"guibuilder/frmColorDefault", "frmColorDefault", "windowTitle", "Window Properties"},
    {"guibuilder/frmColorDefault", "lblCaption", "text", "Caption:"},
    {"guibuilder/frmColorDefault", "lblHandle", "text", "Handle #"},
    {"guibuilder/frmColorDefault", "lblType", "text", "Type:"},
    {"guibuilder/frmColorDefault", "lblFont", "text", "Font:"},
    {"guibuilder/frmColorDefault", "lblWidth", "text", "Width:"},
    {"guibuilder/frmColorDefault", "lblHeight", "text", "Height:"},
    {"guibuilder/frmColorDefault", "lblColor0", "text", "ForegroundColor$:"},
    {"guibuilder/frmColorDefault", "lblColor1", "text", "BackgroundColor$:"},
    {"guibuilder/frmColorDefault", "lblColor2", "text", "ListboxColor$:"},
    {"guibuilder/frmColorDefault", "lblColor3", "text", "ComboboxColor$:"},
    {"guibuilder/frmColorDefault", "lblColor4", "text", "TextboxColor$:"},
    {"guibuilder/frmColorDefault", "lblColor5", "text", "TexteditorColor$:"},
    {"guibuilder/frmColorDefault", "lblColor6", "text", "GraphicsColor$:"},
    {"guibuilder/frmColorDefault", "lblStatus", "text", "Statusbar Text :"},
    {"guibuilder/frmColorDefault", "chkTooltip", "text", "Tooltips"},
    {"guibuilder/frmColorDefault", "chkStatusbar", "text", "StatusBar"},
    {"guibuilder/frmColorDefault", "chkTimer", "text", "Timer"},
    {"guibuilder/frmColorDefault", "chkMenu", "text", "Menu"},
    {"imagetools/avi/frmAVI", "frmAVI", "windowTitle", "AVI Maker"},
    {"imagetools/avi/frmAVI", "cmdFileOpen", "text", "Add BMP file to list..."},
    {"imagetools/avi/frmAVI", "cmdClearList", "text", "Clear file list"},
    {"imagetools/avi/frmAVI", "cmdWriteAVI", "text", "Write AVI..."},
    {"imagetools/avi/frmAVI", "cmdCancel", "text", "Cancel"},
    {"imagetools/avi/frmAVI", "lblFrameRate", "text", "Frames Per Second:"},
    {"imagetools/avi/frmAVI", "lblfps", "text", "(1 - 30)"},
    {"imagetools/avi/frmAVI", "lblStatus", "text", "AVI Status"},
    {"imagetools/sprites/frmBatch", "frmBatch", "windowTitle", "Batch Sprite Masker"},
    {"imagetools/sprites/frmBatch", "Label1", "text", "Drives:"},
    {"imagetools/sprites/frmBatch", "Label2", "text", "Directories:"},
    {"imagetools/sprites/frmBatch", "Label4", "text", "Bitmaps:"},
    {"imagetools/sprites/frmBatch", "OKButton", "text", "OK"},
    {"imagetools/sprites/frmBatch", "CancelButton", "text", "Cancel"},
    {"imagetools/sprites/frmMask", "frmMask", "windowTitle", "Make a Mask"},
    {"imagetools/sprites/frmMask", "lblWork", "text", "Sprite and Mask will appear here."},
    {"imagetools/sprites/frmMask", "cmdOpen", "text", "Open..."},
    {"imagetools/sprites/frmMask", "cmdSave", "text", "Save As..."},
    {"imagetools/sprites/frmMask", "cmdBatch", "text", "Batch..."},
    {"imagetools/sprites/frmMask", "cmdHelp", "text", "Help"},
    {"imagetools/sprites/frmMask", "cmdExit", "text", "Exit"},
    {"shell/bench/frmOptions", "frmOptions", "windowTitle", "Options"},
    {"shell/bench/frmOptions", "cmdFont", "text", "Change"},
    {"shell/bench/frmOptions", "chkIndent", "text", "Auto Indent"},
    {"shell/bench/frmOptions", "chkLinenums", "text", "Show Line Numbers"},
    {"shell/bench/frmOptions", "chkHighlight", "text", "Highlight Current Line"},
    {"shell/bench/frmOptions", "chkIndentGuides", "text", "Indentation Guides On"},
    {"shell/bench/frmOptions", "chkFile", "text", "Open Last File at Startup"},
    {"shell/bench/frmOptions", "optColorOn", "text", "Syntax Color On"},
    {"shell/bench/frmOptions", "optColorOff", "text", "Syntax Color Off"},
    {"shell/bench/frmOptions", "chkDefaultColors", "text", "Restore Default Colors"},
    {"shell/bench/frmOptions", "cmdAssoc", "text", "Associate"},
    {"shell/bench/frmOptions", "cmdUser", "text", "Add/Remove"},
    {"shell/bench/frmOptions", "cmdApply", "text", "Apply"},
    {"shell/bench/frmOptions", "cmdOK", "text", "OK"},
    {"shell/bench/frmOptions", "cmdCancel", "text", "Cancel"},
    {"shell/bench/frmOptions", "chkQuery", "text",
     "Query programmer to save unsaved work when closing Gui Builder, Edit Windows, or when exiting OB Bench?"},
    {"shell/bench/frmOptions", "chkComments", "text",
     "Automatically add programmer's comments to all new code windows?"},
    {"shell/bench/frmOptions", "lblComments", "text", "' Comment Color"},
    {"shell/bench/frmOptions", "lblCommentback", "text", "Comment Back Color"},
    {"shell/bench/frmOptions", "lblBranch", "text", "[Branch Label Color]"},
    {"shell/bench/frmOptions", "lblKeywords", "text", "Key Word Color"},
    {"shell/bench/frmOptions", "lblQuote", "text", "\"Quote Color\""},
    {"shell/bench/frmOptions", "lblHighlight", "text", "Current Line Back Color"},
    {"shell/bench/frmOptions", "lblNumber", "text", "Number Color"},
    {"shell/bench/frmOptions", "lblHandle", "text", "# Handle Color"},
    {"shell/bench/frmOptions", "lblNoColor", "text", "No syntax coloring.  All Text is system default color."},
    {"shell/bench/frmOptions", "lblOBexe", "text", "Orchard BASIC Path:"},
    {"shell/bench/frmOptions", "lblOBHelp", "text", "Orchard BASIC Help Path:"},
    {"shell/bench/frmOptions", "lblOBFreeForm", "text", "FreeForm Path:"},
    {"shell/bench/frmOptions", "lblOBRuntime", "text", "Runtime Engine Path:"},
    {"shell/bench/frmOptions", "lblOptionalHelp", "text", "Optional Helpfile Path:"},
    {"shell/bench/frmOptions", "lblProgrammer", "text", "Programmer's Comments:"},
    {"shell/bench/frmOptions", "lblAssoc", "text", "Associate *.OBF and *.BAS file extensions with OB Bench?"},
    {"shell/bench/frmOptions", "lblUser", "text", "Change User-Defined Applications for Hot Button?"},
};

// The texts of a Designer file by "control.property"; empty when it cannot be read.
QHash<QString, QString> TextsOf(const QString& window)
{
    QHash<QString, QString> texts;
    QFile file(u"" OB_TEST_DATA "/../../src/"_s + window + u".ui"_s);
    if (!file.open(QIODevice::ReadOnly))
        return texts;
    QString control;
    QString property;
    for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext()) {
        if (!xml.isStartElement())
            continue;
        const QString name = xml.attributes().value(QLatin1String("name")).toString();
        if (xml.name() == QLatin1String("widget"))
            control = name;
        else if (xml.name() == QLatin1String("property") || xml.name() == QLatin1String("attribute"))
            property = name;
        else if (xml.name() == QLatin1String("string"))
            texts.insert(control + QLatin1Char('.') + property, xml.readElementText());
    }
    return texts;
}

} // namespace

class tst_captions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void designerFilesHaveTheirCaptions_data()
    {
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("caption");
        for (const Row& row : Rows)
            QTest::addRow("%s %s.%s", row.window, row.control, row.property)
                << QString::fromLatin1(row.window)
                << QString::fromLatin1(row.control) + QLatin1Char('.') + QString::fromLatin1(row.property)
                << QString::fromLatin1(row.caption);
    }

    void designerFilesHaveTheirCaptions()
    {
        QFETCH(QString, window);
        QFETCH(QString, key);
        QFETCH(QString, caption);
        if (!texts.contains(window))
            texts.insert(window, TextsOf(window));
        QVERIFY(!texts[window].isEmpty());
        QString text = texts[window].value(key);
        if (!caption.contains(QLatin1Char('&')))
            text.remove(QLatin1Char('&'));
        QCOMPARE(text, caption);
    }

    void accessKeysAreShownAndDiffer_data()
    {
        QTest::addColumn<QStringList>("controls");
        QTest::newRow("imagetools/sprites/frmMask") << u"cmdOpen cmdSave cmdBatch cmdHelp cmdExit"_s.split(u' ');
        QTest::newRow("imagetools/sprites/frmBatch") << u"Label1 Label2 Label4"_s.split(u' ');
        QTest::newRow("imagetools/avi/frmAVI") << u"cmdFileOpen cmdClearList cmdWriteAVI lblFrameRate"_s.split(u' ');
        QTest::newRow("codetools/frmArray")
            << u"Label1 Label2 cmdAdd cmdRemove optNumeric optString lblPreview cmdInsert OKButton"_s.split(u' ');
        QTest::newRow("codetools/frmMenuMaker")
            << u"Label1 Label2 Label3 Label4 optType0 optType1 cmdAdd cmdRemove lblPreview cmdInsert cmdCopy"_s.split(
                   u' ');
        QTest::newRow("codetools/frmMB") << u"lblTitle lblMessage optNone optCritical optExclaim optQuestion optInfo "
                                            "lblCode cmdCreate cmdTest cmdInsert cmdCopy"_s.split(u' ');
        QTest::newRow("codetools/frmStylebits")
            << u"lblObject chkEx optAdd optRemove lblBits lblPreview cmdInsert cmdCopy cmdHelp"_s.split(u' ');
        QTest::newRow("codetools/dlgToolbar") << u"cmdAdd cmdStandard cmdRemove optFlat optRaised optBorder optThick "
                                                 "optNoborder lblPreview cmdInsert OKButton"_s.split(u' ');
    }

    void accessKeysAreShownAndDiffer()
    {
        QFETCH(QStringList, controls);
        const QHash<QString, QString> captions = TextsOf(QString::fromLatin1(QTest::currentDataTag()));
        QSet<QChar> keys;
        for (const QString& control : controls) {
            const QString caption = captions.value(control + u".text"_s);
            const qsizetype mark = caption.indexOf(u'&');
            QVERIFY2(mark >= 0 && mark + 1 < caption.size(), qPrintable(control));
            const QChar key = caption[mark + 1].toLower();
            QVERIFY2(!keys.contains(key), qPrintable(caption));
            keys.insert(key);
        }
    }

private:
    QHash<QString, QHash<QString, QString>> texts;
};

QTEST_GUILESS_MAIN(tst_captions)
#include "tst_captions.moc"
