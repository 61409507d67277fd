// SPDX-License-Identifier: GPL-3.0-or-later
// The settings as one table.
#include "shell/state/modOptions.h"

#include "platform/language/cRuntimeError.h"
#include "platform/language/modRuntime.h"
#include "shell/state/Module1.h"
#include "shell/state/modRecent.h"
#include "shell/state/modSettings.h"

#include <variant>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// A 16-bit number in the store, an int in the state.
struct SmallNumber {
    int* variable;
};

using Variable = std::variant<QString*, bool*, int*, SmallNumber, ColorRef*>;

struct Setting {
    const char* key;
    Variable variable;
    const char* initial;
};

struct ColorSetting {
    const char* key;
    ColorRef* variable;
    ColorRef initial;
};

// In the order in which they are read; the colours come last.
const Setting readOrder[] = {
    {"OptionalHelpPath", &OptionalHelpPath, "no path"},
    {"OBPath", &OBPath, "no path"},
    {"OBHelpPath", &OBHelpPath, "no path"},
    {"OBFreeformPath", &OBFreeformPath, "no path"},
    {"OBRuntimePath", &OBRuntimePath, "no path"},
    {"FontHeight", SmallNumber{&Editor.FontHeight}, "12"},
    {"FontName", &Editor.FontName, "Courier New"},
    {"FontBold", &Editor.FontBold, "false"},
    {"SyntaxColor", SmallNumber{&Editor.SyntaxColor}, "1"},
    {"HotKey", &UserApplications[0], "none"},
    {"User2", &UserApplications[1], "none"},
    {"User3", &UserApplications[2], "none"},
    {"User4", &UserApplications[3], "none"},
    {"User5", &UserApplications[4], "none"},
    {"User6", &UserApplications[5], "none"},
    {"User7", &UserApplications[6], "none"},
    {"User8", &UserApplications[7], "none"},
    {"User9", &UserApplications[8], "none"},
    {"User10", &UserApplications[9], "none"},
    {"QuitQuery", &QuitQuery, "true"},
    {"LastDir", &LastDir, "app.path"},
    {"TabSize", &Editor.TabSize, "4"},
    {"ShowTips", &ShowTips, "true"},
    {"AutoIndent", &Editor.AutoIndent, "true"},
    {"LineNums", &Editor.LineNums, "true"},
    {"HighlightOn", &Editor.HighlightOn, "true"},
    {"IndentGuidesOn", &Editor.IndentGuidesOn, "true"},
    {"OpenFileOn", &OpenFileOn, "false"},
    {"AddComments", &AddComments, "false"},
};

const ColorSetting colorOrder[] = {
    {"CommentColor", &Editor.CommentColor, Rgb(0, 100, 0)},
    {"BranchColor", &Editor.BranchColor, Rgb(200, 0, 0)},
    {"KeywordColor", &Editor.KeywordColor, Rgb(0, 0, 200)},
    {"QuoteColor", &Editor.QuoteColor, Rgb(100, 0, 100)},
    {"HighlightColor", &Editor.HighlightColor, Rgb(255, 240, 200)},
    {"NumberColor", &Editor.NumberColor, Rgb(100, 100, 0)},
    {"HandleColor", &Editor.HandleColor, Rgb(0, 100, 100)},
    {"CommentBackColor", &Editor.CommentBackColor, Rgb(240, 240, 240)},
};

void Read(const Setting& setting)
{
    const QString text = ReadSetting(QString::fromLatin1(setting.key), QString::fromLatin1(setting.initial));
    if (auto* const* words = std::get_if<QString*>(&setting.variable))
        **words = text;
    else if (auto* const* number = std::get_if<int*>(&setting.variable))
        **number = ToInt32(NumberOf(text));
    else if (const auto* small = std::get_if<SmallNumber>(&setting.variable))
        *small->variable = ToInt16(NumberOf(text));
    else if (auto* const* choice = std::get_if<bool*>(&setting.variable))
        **choice = BooleanOf(text).value_or(**choice);
}

QString TextOf(const Variable& variable)
{
    if (auto* const* words = std::get_if<QString*>(&variable))
        return **words;
    if (auto* const* choice = std::get_if<bool*>(&variable))
        return BooleanText(**choice);
    if (const auto* small = std::get_if<SmallNumber>(&variable))
        return QString::number(*small->variable);
    return QString::number(*std::get<int*>(variable));
}

void Write(std::initializer_list<const char*> keys)
{
    for (const std::string_view key : keys)
        for (const Setting& setting : readOrder)
            if (key == setting.key)
                WriteSetting(QString::fromLatin1(setting.key), TextOf(setting.variable));
}

// A colour is stored as the decimal text of a signed 32-bit number.
ColorRef ReadColor(const ColorSetting& color)
{
    const QString fallback = QString::number(static_cast<qint32>(color.initial));
    return static_cast<ColorRef>(ToInt32(NumberOf(ReadSetting(QString::fromLatin1(color.key), fallback))));
}

// Each error while the main window loads is ignored.
template <class Step>
void PassingErrorsOver(Step step)
{
    try {
        step();
    } catch (const RuntimeError&) {
        // The variable keeps its value.
    }
}

} // namespace

void ReadAllSettings()
{
    for (const Setting& setting : readOrder)
        PassingErrorsOver([&] { Read(setting); });
    if (Editor.SyntaxColor >= 2)
        Editor.SyntaxColor = 1;
    RestoreDefaultColors();
    for (const ColorSetting& color : colorOrder)
        PassingErrorsOver([&] { *color.variable = ReadColor(color); });
}

void RestoreDefaultColors()
{
    for (const ColorSetting& color : colorOrder)
        *color.variable = color.initial;
}

void SaveAllSettings()
{
    SaveRecentFiles();
    Write({"OBPath",         "OBHelpPath",    "OptionalHelpPath",
           "OBFreeformPath", "OBRuntimePath", "FontHeight",
           "SyntaxColor",    "FontName",      "FontBold",
           "HotKey",         "User2",         "User3",
           "User4",          "User5",         "User6",
           "User7",          "User8",         "User9",
           "User10",         "QuitQuery",     "LastDir"});
    for (const ColorSetting& color : colorOrder)
        WriteSetting(QString::fromLatin1(color.key), QString::number(static_cast<qint32>(*color.variable)));
    Write({"LineNums", "TabSize", "ShowTips", "AutoIndent", "HighlightOn", "IndentGuidesOn", "OpenFileOn",
           "AddComments"});
    SyncSettings();
}

static float ReadTwips(const char* key, float fallback)
{
    const QString initial = QString::number(static_cast<int>(fallback));
    return static_cast<float>(NumberOf(ReadSetting(QString::fromLatin1(key), initial)));
}

WindowPlace ReadWindowPlace()
{
    const WindowPlace initial;
    return {ReadTwips("MainLeft", initial.left), ReadTwips("MainTop", initial.top),
            ReadTwips("MainWidth", initial.width), ReadTwips("MainHeight", initial.height)};
}

void SaveWindowPlace(const WindowPlace& place)
{
    WriteSetting(u"MainLeft"_s, NumberText(place.left));
    WriteSetting(u"MainTop"_s, NumberText(place.top));
    WriteSetting(u"MainWidth"_s, NumberText(place.width));
    WriteSetting(u"MainHeight"_s, NumberText(place.height));
}

} // namespace ob
