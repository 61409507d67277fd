// SPDX-License-Identifier: GPL-3.0-or-later
// What is odd about a form.
#include "guibuilder/modRemarks.h"

#include "guibuilder/modGenerator.h"
#include "platform/files/modFiles.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

bool IsLetter(QChar each)
{
    return (each >= u'a' && each <= u'z') || (each >= u'A' && each <= u'Z');
}

bool IsDigit(QChar each)
{
    return each >= u'0' && each <= u'9';
}

bool IsName(const QString& text)
{
    return !text.isEmpty() && IsLetter(text[0]) && std::ranges::all_of(text, [](QChar each) {
        return IsLetter(each) || IsDigit(each) || each == u'.' || each == u'_';
    });
}

// A window's handle may also be a whole number.
bool IsHandle(const QString& text)
{
    return IsName(text) || (!text.isEmpty() && std::ranges::all_of(text, IsDigit));
}

QString Called(ControlRef ref)
{
    return LatinText(TraitsOf(ref.kind).propWord) + u' ' + QString::number(ref.index);
}

class Reviewer {
public:
    explicit Reviewer(const GuiForm& source) : form(source) {}

    std::vector<FormRemark> Review()
    {
        ReviewWindow();
        ReviewMenus();
        for (const KindTraits& traits : KindTable)
            for (std::size_t index = 1; index < form.List(traits.kind).size(); ++index)
                if (form.List(traits.kind)[index].visible)
                    ReviewControl({traits.kind, static_cast<int>(index)});
        return std::move(remarks);
    }

private:
    void Add(std::optional<ControlRef> control, const QString& text) { remarks.push_back({control, text}); }

    void ReviewText(std::optional<ControlRef> control, const QString& words, const QString& text)
    {
        if (text.contains(u'"'))
            Add(control, u"%1 has a quotation mark, which ends the text in the program."_s.arg(words));
    }

    void ReviewWindow()
    {
        if (!IsHandle(form.GuiHandleName))
            Add({}, u"The window: \"%1\" is no name. %2"_s.arg(form.GuiHandleName, NameRule));
        ReviewText({}, u"The window: its caption"_s, form.caption);
        if (!form.GuiStatusbarOn)
            return;
        for (std::size_t panel = 0; panel < form.panels.size(); ++panel)
            ReviewText({}, u"The status bar: panel %1"_s.arg(panel + 1), form.panels[panel]);
    }

    void ReviewMenus()
    {
        if (!form.GuiMenuOn)
            return;
        for (std::size_t menu = 0; menu < MenuSlots && !form.GuiMenuNames[menu].isEmpty(); ++menu) {
            const QString& name = form.GuiMenuNames[menu];
            ReviewText({}, u"The menu %1: its name"_s.arg(name), name);
            for (const QString& item : form.GuiMenuItems[menu])
                ReviewText({}, u"The menu %1: an item"_s.arg(name), item);
        }
    }

    void ReviewControl(ControlRef ref)
    {
        const ControlRecord& control = form.At(ref);
        const KindTraits& traits = TraitsOf(ref.kind);
        const QString name = NameInProgram(form, ref);
        const QString start = Called(ref) + u": "_s;
        if (!IsName(name))
            Add(ref, start + u"\"%1\" is no name. %2"_s.arg(name, NameRule));
        if (const auto first = names.constFind(name); first != names.constEnd())
            Add(ref, start + u"%1 has the name \"%2\" too."_s.arg(Called(*first), name));
        else
            names.insert(name, ref);
        // The captions of the other kinds are not in the program.
        if (ref.kind == ControlKind::Bmpbutton)
            ReviewBitmap(ref, control.caption);
        else if (traits.loadedText.empty())
            ReviewText(ref, start + u"its caption"_s, control.caption);
        if (form.GuiTooltipsOn && !traits.tooltip.empty())
            ReviewText(ref, start + u"its tool tip"_s, SplitTag(control.tag).tooltip);
    }

    void ReviewBitmap(ControlRef ref, const QString& path)
    {
        if (path.isEmpty() || path == NoBitmap)
            Add(ref, Called(ref) + u": it has no bitmap."_s);
        else if (!FileExists(path))
            Add(ref, Called(ref) + u": there is no file %1."_s.arg(path));
    }

    const QString NameRule = u"A name is a letter, then letters, digits, \".\" and \"_\"."_s;
    const GuiForm& form;
    QHash<QString, ControlRef> names; // the first control of each name
    std::vector<FormRemark> remarks;
};

} // namespace

std::vector<FormRemark> RemarksOn(const GuiForm& completed)
{
    return Reviewer(completed).Review();
}

} // namespace ob
