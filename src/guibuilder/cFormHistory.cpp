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

bool cFormHistory::Commit(const GuiForm& form, WindowRect rect)
{
    if (rect == WindowRect::Drawn)
        TakeWindowRect(current, form);
    // What lies in front of what follows the clicks; that alone is no step.
    if (current.order.size() == form.order.size())
        current.order = form.order;
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
    current = target;
    if (!setRect) {
        // Where the user has drawn the window since is not a step.
        TakeWindowRect(target, form);
        TakeWindowRect(current, form);
    }
    return target;
}

} // namespace ob
