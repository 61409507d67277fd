// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences as one table, and the order in which they are put into force.
#include "shell/bench/modPreferences.h"

#include "editor/document/cDocument.h"
#include "editor/document/modStyling.h"
#include "editor/document/modUserTexts.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "platform/language/modRuntime.h"
#include "shell/state/Module1.h"
#include "shell/state/modOptions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

using Copies = Preferences;
using Text = Field<QString>;
using Choice = Field<bool>;
using Number = Field<int>;
using Color = Field<ColorRef>;

constexpr int LargestTabSize = 12;

constexpr PreferenceRow Path(const char* control, Text field, const char* browse, OutsideFile file)
{
    return {control, field, browse, file};
}

constexpr PreferenceRow Sample(const char* control, Color field, Ground ground = Ground::Text)
{
    return {control, field, nullptr, {}, ground};
}

const PreferenceRow rows[] = {
    {"txtFontName", Text{&Copies::fontName, &Editor.FontName}},
    {"txtFontSize", Number{&Copies::fontSize, &Editor.FontHeight}},
    {"chkBold", Choice{&Copies::fontBold, &Editor.FontBold}},
    {"optColorOn", Number{&Copies::syntaxColor, &Editor.SyntaxColor}},
    {"txtTabSize", Number{&Copies::tabSize, &Editor.TabSize}},
    Path("txtOptionalHelp", {&Copies::optionalHelpPath, &OptionalHelpPath}, "cmdOptionalHelp",
         OutsideFile::OptionalHelp),
    Path("txtOBexe", {&Copies::orchardPath, &OBPath}, "cmdOBexe", OutsideFile::Orchard),
    Path("txtOBHelp", {&Copies::helpPath, &OBHelpPath}, "cmdOBHelp", OutsideFile::Help),
    Path("txtOBFreeForm", {&Copies::freeformPath, &OBFreeformPath}, "cmdOBFreeForm", OutsideFile::Freeform),
    Path("txtOBRuntime", {&Copies::runtimePath, &OBRuntimePath}, "cmdOBRuntime", OutsideFile::Runtime),
    {"chkQuery", Choice{&Copies::quitQuery, &QuitQuery}},
    {"chkIndent", Choice{&Copies::autoIndent, &Editor.AutoIndent}},
    {"chkLinenums", Choice{&Copies::lineNums, &Editor.LineNums}},
    {"chkHighlight", Choice{&Copies::highlightOn, &Editor.HighlightOn}},
    {"chkIndentGuides", Choice{&Copies::indentGuidesOn, &Editor.IndentGuidesOn}},
    {"chkFile", Choice{&Copies::openFileOn, &OpenFileOn}},
    Sample("lblComments", {&Copies::commentColor, &Editor.CommentColor}),
    Sample("lblBranch", {&Copies::branchColor, &Editor.BranchColor}),
    Sample("lblKeywords", {&Copies::keywordColor, &Editor.KeywordColor}),
    Sample("lblQuote", {&Copies::quoteColor, &Editor.QuoteColor}),
    Sample("lblHighlight", {&Copies::highlightColor, &Editor.HighlightColor}, Ground::Back),
    Sample("lblNumber", {&Copies::numberColor, &Editor.NumberColor}),
    Sample("lblHandle", {&Copies::handleColor, &Editor.HandleColor}),
    Sample("lblCommentback", {&Copies::commentBackColor, &Editor.CommentBackColor}, Ground::Back),
    {"chkComments", Choice{&Copies::addComments, &AddComments}, nullptr, {}, {}, Turn::AfterWindows},
};

// The failure of one step must not prevent the following ones. It has no box, as no other failure here.
template <class Step>
void PassingErrorsOver(Step step)
{
    try {
        step();
    } catch (const RuntimeError& error) {
        ShowReason(error);
    }
}

void WriteFields(const Preferences& values, Turn turn)
{
    for (const PreferenceRow& row : rows)
        if (row.turn == turn)
            std::visit([&](const auto& field) { *field.setting = values.*field.copy; }, row.field);
}

void StyleOpenWindows()
{
    for (const auto& document : Documents)
        if (document != nullptr && document->sci != nullptr)
            PassingErrorsOver([&] { SetSciColors(document->sci, Editor); });
}

} // namespace

std::span<const PreferenceRow> PreferenceRows()
{
    return rows;
}

Preferences LoadPreferences(const QString& folder)
{
    Preferences values;
    for (const PreferenceRow& row : rows)
        std::visit([&](const auto& field) { values.*field.copy = *field.setting; }, row.field);
    values.syntaxColor = Editor.SyntaxColor > 0 ? 1 : 0;
    values.comments = TextFromAnsi(LoadCommentFile(folder));
    return values;
}

int TypedTabSize(const QString& text)
{
    // The size stays when the number is beyond a double.
    double number = text.trimmed().startsWith(QLatin1Char('-')) ? -LargestTabSize : LargestTabSize;
    PassingErrorsOver([&] { number = Val(text); });
    const int size = ToInt32(std::clamp(number, -100.0, 100.0));
    if (size < -1)
        return 1;
    return std::min(size, LargestTabSize);
}

void ApplyPreferences(Preferences& values, const QString& folder)
{
    values.tabSize = std::clamp(values.tabSize, 1, LargestTabSize);
    WriteFields(values, Turn::BeforeWindows);
    StyleOpenWindows();
    WriteFields(values, Turn::AfterWindows);
    if (!values.comments.isEmpty())
        PassingErrorsOver([&] { SaveCommentFile(folder, values.comments); });
    PassingErrorsOver(SaveAllSettings);
}

void TakeDefaultColors(Preferences& values)
{
    RestoreDefaultColors();
    for (const PreferenceRow& row : rows)
        if (const auto* color = std::get_if<Color>(&row.field))
            values.*color->copy = *color->setting;
}

void AssociateFiles(const AssociationPlaces& places)
{
    if (MsgBox(u"Associate files with extensions *.OBF and *.BAS with Orchard Bench?"_s, BoxIcon::None,
               BoxButtons::YesNo, u"Confirm!"_s) == BoxAnswer::No)
        return;
    try {
        AssociateFileTypes(places);
    } catch (const RuntimeError& error) {
        FailureBox(u"The operation to associate file types with Orchard Bench failed."_s, error, u"Error!"_s);
        return;
    }
    MsgBox(u"Files with extensions *.OBF and *.BAS will now open with Orchard Bench when they are "
           "double-clicked in Windows Explorer or My Computer."_s,
           BoxIcon::Exclamation, BoxButtons::Ok, u"Success!"_s);
}

} // namespace ob
