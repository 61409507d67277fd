// SPDX-License-Identifier: GPL-3.0-or-later
// What the empty area of the main window offers.
#include "shell/bench/frmStartPage.h"

#include "platform/dialogs/frmCommand.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/frmTool.h"
#include "shell/state/modIcons.h"
#include "shell/state/modNames.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSet>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int ChoiceIcon = 32; // pixels
constexpr int ChoiceWidth = 96;
constexpr int Margin = 24;

QLabel* MakeHeading(const QString& text, double scale, QWidget* parent)
{
    auto* heading = new QLabel(text, parent);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

} // namespace

frmStartPage::frmStartPage(QMdiArea& mdi) : QScrollArea(mdi.viewport()), area(mdi)
{
    setObjectName(u"frmStartPage"_s);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);

    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->addWidget(MakeHeading(ProgramTitle, 1.8, page));
    choices = new QWidget(page);
    auto* row = new QHBoxLayout(choices);
    row->setContentsMargins(0, Margin / 2, 0, Margin / 2);
    On(AddChoice("cmdStartNew", "New", "new", "New program (Ctrl+N)"), this, [] { ChooseMenuItem(u"mnuFileNew"_s); });
    On(AddChoice("cmdStartOpen", "Open", "open", "Open a program (Ctrl+O)"), this,
       [] { ChooseMenuItem(u"mnuFileOpenCode"_s); });
    On(AddChoice("cmdStartForm", "New form", "form", "Draw a new window"), this,
       [] { ChooseMenuItem(u"mnuFileNewGui"_s); });
    On(AddChoice("cmdStartSteps", "First steps", "instructions", "From the first start to a running program"), this,
       [] { OpenManual(u"first-steps"_s); });
    row->addStretch();
    column->addWidget(choices);
    recent = new QWidget(page);
    auto* below = new QVBoxLayout(recent);
    below->setContentsMargins({});
    below->addWidget(MakeHeading(u"Recent files"_s, 1.2, recent));
    recentFiles = new QGridLayout;
    recentFiles->setColumnStretch(1, 1);
    below->addLayout(recentFiles);
    column->addWidget(recent);
    column->addStretch();
    setWidget(page);

    area.viewport()->installEventFilter(this);
    Follow();
}

QToolButton* frmStartPage::AddChoice(const char* name, const char* text, const char* icon, const char* tip)
{
    auto* choice = new QToolButton(choices);
    choice->setObjectName(QString::fromLatin1(name));
    choice->setText(QString::fromLatin1(text));
    choice->setToolTip(QString::fromLatin1(tip));
    choice->setIcon(BenchIcon(QString::fromLatin1(icon)));
    choice->setIconSize(QSize(ChoiceIcon, ChoiceIcon));
    choice->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    choice->setMinimumWidth(ChoiceWidth);
    choice->setAutoRaise(true);
    choices->layout()->addWidget(choice);
    return choice;
}

void frmStartPage::Follow()
{
    const bool isEmpty = area.subWindowList().isEmpty();
    if (isEmpty) {
        FillRecentFiles();
        setGeometry(area.viewport()->rect());
        raise();
    }
    setVisible(isEmpty);
}

void frmStartPage::FillRecentFiles()
{
    while (QLayoutItem* item = recentFiles->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    QSet<QString> shown;
    for (int number = 1; number <= RecentFileSlots; ++number) {
        const QString& path = RecentFiles[static_cast<std::size_t>(number - 1)];
        if (shown.contains(path) || !FileExists(path))
            continue;
        shown.insert(path);
        AddRecentFile(number, path);
    }
    recent->setVisible(!shown.isEmpty());
}

void frmStartPage::AddRecentFile(int number, const QString& path)
{
    auto* file = new QToolButton(recent);
    file->setObjectName(u"cmdStartRecent%1"_s.arg(number));
    file->setText(NameOf(path).replace(u'&', u"&&"_s));
    file->setToolTip(path);
    file->setAutoRaise(true);
    // The list is made anew while the button that was pressed is still at work.
    On(file, this, [number] { QTimer::singleShot(0, [number] { ChooseMenuItem(u"mnuFileMRU%1"_s.arg(number)); }); });
    auto* folder = new QLabel(FolderOf(path), recent);
    folder->setTextFormat(Qt::PlainText);
    folder->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    folder->setForegroundRole(QPalette::PlaceholderText);
    const int row = recentFiles->count() / 2;
    recentFiles->addWidget(file, row, 0);
    recentFiles->addWidget(folder, row, 1);
}

void frmStartPage::keyPressEvent(QKeyEvent* event)
{
    auto* button = qobject_cast<QToolButton*>(window()->focusWidget());
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && button != nullptr && isAncestorOf(button))
        button->click();
    else
        QScrollArea::keyPressEvent(event);
}

bool frmStartPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && isVisible())
        setGeometry(area.viewport()->rect());
    // The area itself learns of the change after its viewport.
    if (event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildRemoved)
        QTimer::singleShot(0, this, &frmStartPage::Follow);
    return QScrollArea::eventFilter(watched, event);
}

} // namespace ob
