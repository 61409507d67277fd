// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of the form under design that can be undone.
#include "guibuilder/cFormHistory.h"

namespace ob {

namespace {

bool SameWindowRect(const GuiForm& one, const GuiForm& other)
{
    return one.left == other.left && one.top == other.top && one.width == other.width && one.height == other.height;
}

void TakeWindowRect(GuiForm& form, const GuiForm& from)
{
    form.left = from.left;
    form.top = from.top;
    form.width = from.width;
    form.height = from.height;
}

} // namespace

void cFormHistory::Restart(const GuiForm& form)
{
    before.clear();
    after.clear();
    current = form;
}

// Not a step: where the user has moved the window, the stacking order, and the state of the window defaults.
void cFormHistory::Settle(const GuiForm& form, WindowRect rect)
{
    if (rect == WindowRect::Drawn)
        TakeWindowRect(current, form);
    if (current.order.size() == form.order.size())
        current.order = form.order;
    current.windowTag = form.windowTag;
    current.GuiDefaultsState = form.GuiDefaultsState;
}

bool cFormHistory::Commit(const GuiForm& form, WindowRect rect)
{
    Settle(form, rect);
    if (form == current)
        return false;
    before.push_back(std::move(current));
    current = form;
    after.clear();
    const std::size_t fit = ControlLimit / (form.order.size() + 1);
    while (before.size() > std::max<std::size_t>(1, std::min(StepLimit, fit)))
        before.pop_front();
    return true;
}

void cFormHistory::Extend(const GuiForm& form)
{
    if (before.empty()) {
        Commit(form);
        return;
    }
    current = form;
    after.clear();
}

void cFormHistory::Adopt(const GuiForm& form)
{
    for (const KindTraits& traits : KindTable) {
        const auto& old = current.List(traits.kind);
        const auto& now = form.List(traits.kind);
        for (std::size_t index = 1; index < std::min(old.size(), now.size()); ++index) {
            const auto fill = [&](QString ControlRecord::*text) {
                if (old[index].*text == now[index].*text)
                    return;
                for (auto* steps : {&before, &after})
                    for (GuiForm& step : *steps)
                        if (index < step.List(traits.kind).size() &&
                            step.List(traits.kind)[index].*text == old[index].*text)
                            step.List(traits.kind)[index].*text = now[index].*text;
            };
            fill(&ControlRecord::tag);
            fill(&ControlRecord::branch);
        }
    }
    current = form;
}

std::optional<GuiForm> cFormHistory::Undo(const GuiForm& form)
{
    return Step(before, after, form);
}

std::optional<GuiForm> cFormHistory::Redo(const GuiForm& form)
{
    return Step(after, before, form);
}

std::optional<GuiForm> cFormHistory::Step(std::deque<GuiForm>& from, std::deque<GuiForm>& to, const GuiForm& form)
{
    if (from.empty())
        return std::nullopt;
    GuiForm target = std::move(from.back());
    from.pop_back();
    const bool setRect = !SameWindowRect(target, current);
    to.push_back(std::move(current));
    if (!setRect)
        TakeWindowRect(target, form);
    // Once the tag follows the type it keeps doing so; a form whose defaults were confirmed stays confirmed.
    const bool tagIsType =
        std::ranges::any_of(WindowTypes, [&](std::string_view type) { return form.windowTag == LatinText(type); });
    target.windowTag = tagIsType ? target.GuiWindowType : form.windowTag;
    target.GuiDefaultsState = form.GuiDefaultsState;
    current = target;
    return target;
}

} // namespace ob
