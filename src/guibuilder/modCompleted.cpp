// SPDX-License-Identifier: GPL-3.0-or-later
// The names and branches that a form lacks.
#include "guibuilder/modCompleted.h"

#include "platform/language/modRuntime.h"

using namespace Qt::StringLiterals;

namespace ob {

namespace {

QString Numbered(std::string_view stem, std::size_t index)
{
    return LatinText(stem) + QString::number(index);
}

void CompleteForFile(ControlRecord& control, const KindTraits& traits, std::size_t index)
{
    if (control.tag.isEmpty())
        control.tag = Numbered(traits.keyword, index);
    if (traits.branch != BranchUse::Label)
        return;
    if (control.branch.isEmpty())
        control.branch = Numbered(traits.keyword, index) + u".click"_s;
    control.branch = TrimSpaces(control.branch);
}

void CompleteForProgram(ControlRecord& control, const KindTraits& traits, std::size_t index)
{
    if (traits.kind == ControlKind::Groupbox && control.tag.isEmpty())
        control.tag = Numbered(traits.nameStem, index);
    if (traits.branch != BranchUse::Label)
        return;
    if (control.branch.isEmpty())
        control.branch = Numbered(traits.branchStem, index) + u".click"_s;
    control.branch = BracketedBranch(control.branch);
}

} // namespace

GuiForm Completed(GuiForm form, CompletedFor purpose)
{
    if (form.GuiHandleName.isEmpty())
        form.GuiHandleName = u"main"_s;
    if (purpose == CompletedFor::Program)
        form.GuiHandleName = TrimSpaces(form.GuiHandleName);
    const auto complete = purpose == CompletedFor::File ? CompleteForFile : CompleteForProgram;
    for (const KindTraits& traits : KindTable) {
        std::vector<ControlRecord>& list = form.List(traits.kind);
        for (std::size_t index = 1; index < list.size(); ++index)
            if (list[index].visible)
                complete(list[index], traits, index);
    }
    return form;
}

} // namespace ob
