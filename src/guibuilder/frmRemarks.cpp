// SPDX-License-Identifier: GPL-3.0-or-later
// The remarks on a form, in a pane of the main window.
#include "guibuilder/frmRemarks.h"

#include <QListWidget>
#include <QMainWindow>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int MostLines = 6; // seen at once at first

} // namespace

frmRemarks::frmRemarks(QWidget* parent) : QDockWidget(u"Remarks on the form"_s, parent)
{
    setObjectName(u"frmRemarks"_s);
    setFeatures(QDockWidget::DockWidgetClosable);
    setAllowedAreas(Qt::BottomDockWidgetArea);
    lstRemarks = new QListWidget(this);
    lstRemarks->setObjectName(u"lstRemarks"_s);
    lstRemarks->setAccessibleName(windowTitle());
    lstRemarks->setToolTip(u"A double-click or Enter selects the control."_s);
    setWidget(lstRemarks);
    // Also sent by a double-click.
    connect(lstRemarks, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) { Choose(*item); });
}

void frmRemarks::ShowRemarks(const std::vector<FormRemark>& shown)
{
    remarks = shown;
    lstRemarks->clear();
    for (const FormRemark& remark : remarks)
        lstRemarks->addItem(remark.text);
    setVisible(!remarks.empty());
    TakeHeight();
}

// As high as the remarks need, up to a few lines.
void frmRemarks::TakeHeight()
{
    auto* window = qobject_cast<QMainWindow*>(parentWidget());
    if (window == nullptr || remarks.empty())
        return;
    const int line = lstRemarks->sizeHintForRow(0);
    const int list = std::min(MostLines, lstRemarks->count()) * line + 2 * lstRemarks->frameWidth();
    const int margin = style()->pixelMetric(QStyle::PM_DockWidgetTitleMargin, nullptr, this);
    lstRemarks->setMinimumHeight(2 * line);
    window->resizeDocks({this}, {list + fontMetrics().height() + 2 * margin + line / 2}, Qt::Vertical);
}

void frmRemarks::Choose(const QListWidgetItem& item)
{
    const auto place = static_cast<std::size_t>(lstRemarks->row(&item));
    if (place < remarks.size() && remarks[place].control)
        Q_EMIT ControlWanted(*remarks[place].control);
}

} // namespace ob
