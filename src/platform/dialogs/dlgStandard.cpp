// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own message, input and file boxes.
#include "platform/dialogs/dlgStandard.h"

#include "platform/dialogs/frmManners.h"
#include "platform/dialogs/modFileBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFontDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QSpacerItem>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Hold a line together, and take no space or that of the space that they stand for.
constexpr QChar WordJoiner(0x2060);
constexpr QChar NoBreakSpace(0x00A0);

// The name of a file or folder as one word, however a line could otherwise end in it.
QString AsOneWord(QStringView name)
{
    QString word;
    for (const QChar character : name) {
        if (!word.isEmpty())
            word += WordJoiner;
        word += character == u' ' ? NoBreakSpace : character;
    }
    return word;
}

// The text with lines that end in these paths only after a separator.
QString WithWholeNames(QString text, const QStringList& paths)
{
    for (const QString& path : paths) {
        QStringList names = path.split(QDir::separator());
        for (QString& name : names)
            name = AsOneWord(name);
        text.replace(path, names.join(QDir::separator()));
    }
    return text;
}

QString WithPlainNames(QString text)
{
    return text.remove(WordJoiner).replace(NoBreakSpace, u' ');
}

// A question without Cancel is closed only by its buttons: neither Escape nor the close button is an answer.
class QuestionBox final : public QMessageBox {
public:
    enum Leaving { MayBeLeft, NeedsAnswer };

    QuestionBox(QWidget* parent, Leaving howLeft) : QMessageBox(parent), leaving(howLeft)
    {
        if (leaving == NeedsAnswer)
            setWindowFlags((windowFlags() | Qt::CustomizeWindowHint) & ~Qt::WindowCloseButtonHint);
    }

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
        if (event->matches(QKeySequence::Copy))
            QGuiApplication::clipboard()->setText(WithPlainNames(text()));
        else if (leaving == NeedsAnswer && event->matches(QKeySequence::Cancel))
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
QStringList ToolkitFilters(const FileSpec& spec)
{
    const QList<FileFilter> filters = FileFiltersOf(spec.filter);
    QStringList lines;
    for (const FileFilter& filter : filters)
        lines.append(u"%1 (%2)"_s.arg(filter.label, filter.patterns.join(QLatin1Char(' '))));
    const auto showsAll = [](const FileFilter& filter) { return filter.patterns.contains(u"*"_s); };
    if (std::none_of(filters.begin(), filters.end(), showsAll))
        lines.append(u"All Files (*)"_s);
    return lines;
}

// A file's type and icon come from its name alone: a look into the files of a slow or strange folder could take for
// ever.
class NameTypes final : public QFileIconProvider {
public:
    QIcon icon(const QFileInfo& file) const override
    {
        return QFileIconProvider::icon(file.isDir() ? QAbstractFileIconProvider::Folder
                                                    : QAbstractFileIconProvider::File);
    }

    QString type(const QFileInfo& file) const override
    {
        if (file.isDir())
            return u"Folder"_s;
        const QList<QMimeType> types = QMimeDatabase().mimeTypesForFileName(file.fileName());
        return types.isEmpty() ? u"File"_s : types.first().comment();
    }
};

// The toolkit's box in a folder, as large as the user left the last one. The toolkit's own constructor would list the
// folder before it knows where types come from; the top of the disk holds folders.
class FileDialog final : public QFileDialog {
public:
    // The types must live as long as the box, which asks for them on a thread of its own.
    FileDialog(NameTypes& types, const QString& title, const QString& folder)
        : QFileDialog(BoxOwner(), title, QDir::rootPath())
    {
        setIconProvider(&types);
        setDirectory(folder);
        // The user has not been at the top of the disk.
        if (auto* back = findChild<QToolButton*>(u"backButton"_s))
            back->setEnabled(false);
        if (const QSize size = FileBoxSize(); !size.isEmpty())
            resize(size.boundedTo(screen()->availableSize()));
    }

    // The chosen paths, or none.
    QStringList Choose()
    {
        const QSize before = size();
        const bool isChosen = exec() == QDialog::Accepted;
        if (size() != before)
            StoreFileBoxSize(size());
        QStringList chosen = isChosen ? selectedFiles() : QStringList();
        for (QString& path : chosen)
            path = QDir::toNativeSeparators(path);
        return chosen;
    }
};

// Window managers have buttons and an icon beside the title, for which the toolkit reckons too little.
constexpr int TitleButtons = 170; // pixels

// The width that a window needs to show its title.
int WidthOfTitle(const QWidget& window)
{
    QFont bold = window.font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(window.windowTitle()) + TitleButtons;
}

// The width of a text within limits, with space for the box's picture and margins beside it.
int WidthOfDetails(const QMessageBox& box)
{
    constexpr int widest = 460;
    constexpr int beside = 100;
    return std::min(widest, box.fontMetrics().horizontalAdvance(box.informativeText())) + beside;
}

// A message box has a size of its own making, which only its layout changes.
void MakeRoom(QMessageBox& box)
{
    const int width = std::max(WidthOfTitle(box), WidthOfDetails(box));
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

// File and reason of a failure, below the message's own words.
void ShowDetails(QMessageBox& box, const QString& details)
{
    if (details.isEmpty())
        return;
    box.setInformativeText(details);
    if (auto* label = box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s))
        label->setTextFormat(Qt::PlainText);
}

// The box's field with the chosen family; null when the box is not the toolkit's own.
QLineEdit* FamilyShownBy(const QFontDialog& box)
{
    for (QLineEdit* field : box.findChildren<QLineEdit*>())
        if (!field->text().isEmpty() && field->text() == box.currentFont().family())
            return field;
    return nullptr;
}

// Takes the styles out of the toolkit's own box, whose lists are families, styles and sizes, each with its field.
void HideStyles(const QFontDialog& box)
{
    const auto lists = box.findChildren<QListView*>();
    const auto fields = box.findChildren<QLineEdit*>();
    if (lists.size() < 3 || fields.size() < 3)
        return;
    for (QLabel* label : box.findChildren<QLabel*>())
        if (label->buddy() == lists[1] || label->buddy() == fields[1])
            label->hide();
    lists[1]->hide();
    fields[1]->hide();
}

// No font of ours is underlined or struck out.
void HideEffects(const QFontDialog& box)
{
    for (QGroupBox* group : box.findChildren<QGroupBox*>())
        if (group->findChild<QCheckBox*>() != nullptr)
            group->hide();
}

// Where two makers have a family of one name the toolkit adds the maker: "Courier [Adobe]".
QString WithoutMaker(const QString& family)
{
    const qsizetype mark = family.lastIndexOf(QLatin1String(" ["));
    return mark > 0 && family.endsWith(u']') ? family.first(mark) : family;
}

} // namespace

static QString TitleOf(const QString& title)
{
    return title.isEmpty() ? u"OB Bench"_s : title;
}

BoxAnswer dlgStandard::Message(const MessageSpec& spec)
{
    const bool needsAnswer = spec.buttons == BoxButtons::YesNo || spec.buttons == BoxButtons::AbortRetryIgnore;
    QuestionBox box(BoxOwner(), needsAnswer ? QuestionBox::NeedsAnswer : QuestionBox::MayBeLeft);
    box.setWindowTitle(TitleOf(spec.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(WithWholeNames(spec.text, spec.paths));
    ShowDetails(box, spec.reason);
    box.setIcon(IconOf(spec.icon));
    box.setStandardButtons(ButtonsOf(spec.buttons));
    box.setDefaultButton(DefaultOf(spec.buttons));
    MakeRoom(box);
    return AnswerOf(box.exec());
}

std::optional<QString> dlgStandard::Input(const InputSpec& spec)
{
    QInputDialog box(BoxOwner());
    box.setWindowTitle(TitleOf(spec.title));
    box.setLabelText(QString());
    box.setTextValue(spec.initial);
    // The prompt may quote the user's text: its "&" and "<" have no special meaning.
    if (auto* prompt = box.findChild<QLabel*>()) {
        prompt->setBuddy(nullptr);
        prompt->setTextFormat(Qt::PlainText);
        prompt->setText(spec.prompt);
    }
    if (auto* field = box.findChild<QLineEdit*>()) {
        field->setAccessibleName(spec.prompt);
        field->setMinimumWidth(WidthOfTitle(box));
    }
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

// The ending follows the filter that the user picks, where the filter has just one. Whoever chooses all files means the
// name as it is typed.
static void FollowFilter(QFileDialog& box, const FileSpec& spec)
{
    QObject::connect(&box, &QFileDialog::filterSelected, &box, [&box, &spec, filters = FileFiltersOf(spec.filter)] {
        const int place = PlaceOfFilter(box);
        const QStringList patterns = filters.value(place).patterns;
        if (patterns.size() == 1 && patterns.first().startsWith(u"*."_s))
            box.setDefaultSuffix(patterns.first().sliced(2));
        else
            box.setDefaultSuffix(place < filters.size() ? spec.extension : QString());
    });
}

static QStringList ChooseFiles(const FileSpec& spec, QFileDialog::FileMode mode)
{
    const QDir folder(FileBoxStart(spec.folder));
    NameTypes types;
    FileDialog box(types, spec.title, folder.path());
    box.setNameFilters(ToolkitFilters(spec));
    box.setOption(QFileDialog::HideNameFilterDetails);
    const bool saves = spec.purpose == FilePurpose::Save;
    box.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    box.setFileMode(saves ? QFileDialog::AnyFile : mode);
    box.setDefaultSuffix(spec.extension);
    if (!spec.extension.isEmpty())
        FollowFilter(box, spec);
    if (!spec.name.isEmpty())
        box.selectFile(folder.filePath(spec.name));
    if (spec.filterIndex != nullptr)
        box.selectNameFilter(box.nameFilters().value(*spec.filterIndex));
    const QStringList chosen = box.Choose();
    if (spec.filterIndex != nullptr && !chosen.isEmpty())
        *spec.filterIndex = PlaceOfFilter(box);
    return chosen;
}

QString dlgStandard::File(const FileSpec& spec)
{
    return ChooseFiles(spec, QFileDialog::ExistingFile).value(0);
}

QStringList dlgStandard::Files(const FileSpec& spec)
{
    return ChooseFiles(spec, QFileDialog::ExistingFiles);
}

QString dlgStandard::Folder(const FolderSpec& spec)
{
    NameTypes types;
    FileDialog box(types, spec.title, FileBoxStart(spec.start));
    box.setFileMode(QFileDialog::Directory);
    box.setOption(QFileDialog::ShowDirsOnly);
    return box.Choose().value(0);
}

std::optional<std::uint32_t> dlgStandard::Color(const ColorSpec& spec)
{
    const auto channel = [&](int shift) { return static_cast<int>((spec.start >> shift) & 0xFF); };
    const QColor chosen = QColorDialog::getColor(QColor(channel(0), channel(8), channel(16)), BoxOwner(), spec.title);
    if (!chosen.isValid())
        return std::nullopt;
    return static_cast<std::uint32_t>(chosen.red() | (chosen.green() << 8) | (chosen.blue() << 16));
}

std::optional<FontSpec> dlgStandard::Font(const FontSpec& start)
{
    QFont font(QString(), start.size, start.bold ? QFont::Bold : QFont::Normal, start.italic);
    font.setFamilies({start.name});
    QFontDialog box(font, BoxOwner());
    // For a font that is not installed the box shows a substitute; the name is kept until the user picks another.
    QLineEdit* const shown = FamilyShownBy(box);
    if (shown != nullptr)
        shown->setText(start.name);
    HideEffects(box);
    if (start.styles == FontStyles::Ignored)
        HideStyles(box);
    if (box.exec() != QDialog::Accepted)
        return std::nullopt;
    font = box.selectedFont();
    const bool kept = shown != nullptr && shown->text() == start.name;
    const QString name = kept ? start.name : WithoutMaker(font.family());
    if (start.styles == FontStyles::Ignored)
        return FontSpec{name, font.pointSize(), start.bold, start.italic, start.styles};
    return FontSpec{name, font.pointSize(), font.bold(), font.italic()};
}

} // namespace ob
