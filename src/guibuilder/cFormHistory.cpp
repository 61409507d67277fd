// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of the form under design that can be undone.
#include "guibuilder/cFormHistory.h"

namespace ob {

namespace {

void TakeWindowPlace(GuiForm& form, const GuiForm& from)
{
    form.left = from.left;
    form.top = from.top;
}

void TakeWindowRect(GuiForm& form, const GuiForm& from)
{
    TakeWindowPlace(form, from);
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
    else
        TakeWindowPlace(current, form);
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
    const bool sameSize = form.width == current.width && form.height == current.height;
    before.push_back({std::move(current), sameSize ? WindowRect::Drawn : WindowRect::Set});
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
                    for (Step& step : *steps) {
                        auto& list = step.form.List(traits.kind);
                        if (index < list.size() && list[index].*text == old[index].*text)
                            list[index].*text = now[index].*text;
                    }
            };
            fill(&ControlRecord::tag);
            fill(&ControlRecord::branch);
        }
    }
    current = form;
}

std::optional<GuiForm> cFormHistory::Undo(const GuiForm& form)
{
    return Go(before, after, form);
}

std::optional<GuiForm> cFormHistory::Redo(const GuiForm& form)
{
    return Go(after, before, form);
}

std::optional<GuiForm> cFormHistory::Go(std::deque<Step>& from, std::deque<Step>& to, const GuiForm& form)
{
    if (from.empty())
        return std::nullopt;
    const WindowRect rect = from.back().rect;
    GuiForm target = std::move(from.back().form);
    from.pop_back();
    // What the user has pulled the window to since then is there again on the way back.
    TakeWindowRect(current, form);
    to.push_back({std::move(current), rect});
    if (rect == WindowRect::Drawn)
        TakeWindowRect(target, form);
    else
        TakeWindowPlace(target, form);
    // Once the tag follows the type it keeps doing so; a form whose defaults were confirmed stays confirmed.
    const bool tagIsType =
        std::ranges::any_of(WindowTypes, [&](std::string_view type) { return form.windowTag == LatinText(type); });
    target.windowTag = tagIsType ? target.GuiWindowType : form.windowTag;
    target.GuiDefaultsState = form.GuiDefaultsState;
    current = target;
    return target;
}

} // namespace ob
