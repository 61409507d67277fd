// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own message, input and file boxes.
#include "platform/dialogs/dlgStandard.h"

#include "platform/language/modSystem.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// A tool that has just closed leaves no window active; its box then belongs over the main window.
QWidget* Owner()
{
    QWidget* active = QApplication::activeWindow();
    if (active != nullptr && active->isVisible())
        return active;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr)
            return window;
    return nullptr;
}

// A question without Cancel is closed only by its buttons: neither Escape nor the close button is an answer.
class QuestionBox final : public QMessageBox {
public:
    enum Leaving { MayBeLeft, NeedsAnswer };

    QuestionBox(QWidget* parent, Leaving howLeft) : QMessageBox(parent), leaving(howLeft) {}

protected:
    void closeEvent(QCloseEvent* event) override
    {
        if (leaving == NeedsAnswer)
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        if (leaving == NeedsAnswer && event->matches(QKeySequence::Cancel))
            event->accept();
        else
            QMessageBox::keyPressEvent(event);
    }

private:
    Leaving leaving;
};

QMessageBox::Icon IconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::None:
        return QMessageBox::NoIcon;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
        return QMessageBox::Ok;
    case BoxButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case BoxButtons::AbortRetryIgnore:
        return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    }
    return QMessageBox::Ok;
}

// The first one in the system's usual order.
QMessageBox::StandardButton DefaultOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
    case BoxButtons::OkCancel:
        return QMessageBox::Ok;
    case BoxButtons::YesNo:
    case BoxButtons::YesNoCancel:
        return QMessageBox::Yes;
    case BoxButtons::RetryCancel:
        return QMessageBox::Retry;
    case BoxButtons::AbortRetryIgnore:
        return QMessageBox::Abort;
    }
    return QMessageBox::Ok;
}

BoxAnswer AnswerOf(int button)
{
    switch (button) {
    case QMessageBox::Ok:
        return BoxAnswer::Ok;
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    case QMessageBox::Abort:
        return BoxAnswer::Abort;
    case QMessageBox::Retry:
        return BoxAnswer::Retry;
    case QMessageBox::Ignore:
        return BoxAnswer::Ignore;
    default:
        return BoxAnswer::Cancel;
    }
}

// One line for each pair, the patterns after the words; the boxes show only the words.
QString ToolkitFilters(const FileSpec& spec)
{
    QStringList lines;
    for (const FileFilter& filter : FileFiltersOf(spec.filter))
        lines.append(u"%1 (%2)"_s.arg(filter.label, filter.patterns.join(QLatin1Char(' '))));
    // Programs and files need no extension on Unix, so every file must be selectable.
    if (ThisSystem == System::Unix && spec.purpose == FilePurpose::Open)
        lines.append(u"All Files (*)"_s);
    return lines.join(u";;"_s);
}

// The box's field with the chosen family; null when the box is not the toolkit's own.
QLineEdit* FamilyShownBy(const QFontDialog& box)
{
    for (QLineEdit* field : box.findChildren<QLineEdit*>())
        if (!field->text().isEmpty() && field->text() == box.currentFont().family())
            return field;
    return nullptr;
}

} // namespace

BoxAnswer dlgStandard::Message(const MessageSpec& spec)
{
    const bool needsAnswer = spec.buttons == BoxButtons::YesNo || spec.buttons == BoxButtons::AbortRetryIgnore;
    QuestionBox box(Owner(), needsAnswer ? QuestionBox::NeedsAnswer : QuestionBox::MayBeLeft);
    box.setWindowTitle(spec.title.isEmpty() ? u"OB Bench"_s : spec.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(spec.text);
    box.setIcon(IconOf(spec.icon));
    box.setStandardButtons(ButtonsOf(spec.buttons));
    box.setDefaultButton(DefaultOf(spec.buttons));
    return AnswerOf(box.exec());
}

std::optional<QString> dlgStandard::Input(const InputSpec& spec)
{
    QInputDialog box(Owner());
    box.setWindowTitle(spec.title);
    box.setLabelText(QString());
    box.setTextValue(spec.initial);
    // The prompt may quote the user's text: its "&" and "<" have no special meaning.
    if (auto* prompt = box.findChild<QLabel*>()) {
        prompt->setBuddy(nullptr);
        prompt->setTextFormat(Qt::PlainText);
        prompt->setText(spec.prompt);
    }
    if (auto* field = box.findChild<QLineEdit*>())
        field->setAccessibleName(spec.prompt);
    return box.exec() == QDialog::Accepted ? std::optional(box.textValue()) : std::nullopt;
}

// The toolkit's own box returns the chosen filter without its patterns, a system's box with them.
static int PlaceOfFilter(const QFileDialog& box)
{
    const QString chosen = box.selectedNameFilter();
    const QStringList filters = box.nameFilters();
    for (int i = 0; i < filters.size(); ++i)
        if (filters[i] == chosen ||
            filters[i].first(std::max<qsizetype>(0, filters[i].lastIndexOf(QLatin1String(" (")))) == chosen)
            return i;
    return 0;
}

QString dlgStandard::File(const FileSpec& spec)
{
    const QDir folder(spec.folder.isEmpty() ? QDir::currentPath() : spec.folder);
    const QString filters = ToolkitFilters(spec);
    QFileDialog box(Owner(), spec.title, folder.path(), filters);
    box.setOption(QFileDialog::HideNameFilterDetails);
    const bool saves = spec.purpose == FilePurpose::Save;
    box.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    box.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    box.setDefaultSuffix(spec.extension);
    if (!spec.name.isEmpty())
        box.selectFile(folder.filePath(spec.name));
    if (spec.filterIndex != nullptr)
        box.selectNameFilter(box.nameFilters().value(*spec.filterIndex));
    if (box.exec() != QDialog::Accepted)
        return {};
    if (spec.filterIndex != nullptr)
        *spec.filterIndex = PlaceOfFilter(box);
    const QString chosen = box.selectedFiles().value(0);
    return QDir::toNativeSeparators(chosen);
}

QString dlgStandard::Folder(const FolderSpec& spec)
{
    return QDir::toNativeSeparators(QFileDialog::getExistingDirectory(Owner(), spec.title, spec.start));
}

std::optional<std::uint32_t> dlgStandard::Color(const ColorSpec& spec)
{
    const auto channel = [&](int shift) { return static_cast<int>((spec.start >> shift) & 0xFF); };
    const QColor chosen = QColorDialog::getColor(QColor(channel(0), channel(8), channel(16)), Owner(), spec.title);
    if (!chosen.isValid())
        return std::nullopt;
    return static_cast<std::uint32_t>(chosen.red() | (chosen.green() << 8) | (chosen.blue() << 16));
}

std::optional<FontSpec> dlgStandard::Font(const FontSpec& start)
{
    QFont font(QString(), start.size, start.bold ? QFont::Bold : QFont::Normal, start.italic);
    font.setFamilies({start.name});
    QFontDialog box(font, Owner());
    // For a font that is not installed the box shows a substitute; the name is kept until the user picks another.
    QLineEdit* const shown = FamilyShownBy(box);
    if (shown != nullptr)
        shown->setText(start.name);
    if (box.exec() != QDialog::Accepted)
        return std::nullopt;
    font = box.selectedFont();
    const bool kept = shown != nullptr && shown->text() == start.name;
    return FontSpec{kept ? start.name : font.family(), font.pointSize(), font.bold(), font.italic()};
}

} // namespace ob
