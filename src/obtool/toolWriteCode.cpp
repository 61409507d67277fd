// SPDX-License-Identifier: GPL-3.0-or-later
// obtool write array, messagebox, menu, stylebits: the makers of a few lines of code.
#include "obtool/toolGroups.h"

#include "codetools/modArray.h"
#include "codetools/modMenuCode.h"
#include "codetools/modMessageBox.h"
#include "codetools/modStylebits.h"
#include "obtool/toolOutput.h"
#include "platform/dialogs/modDialogs.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

using Texts = std::vector<std::string>;

template <class Value>
struct Choice {
    const char* name;
    Value value;
};

constexpr Choice<BoxIcon> icons[] = {
    {"none", BoxIcon::None},         {"critical", BoxIcon::Critical},       {"exclamation", BoxIcon::Exclamation},
    {"question", BoxIcon::Question}, {"information", BoxIcon::Information},
};

constexpr Choice<BoxButtons> buttonSets[] = {
    {"ok", BoxButtons::Ok},
    {"okcancel", BoxButtons::OkCancel},
    {"yesno", BoxButtons::YesNo},
    {"yesnocancel", BoxButtons::YesNoCancel},
    {"retrycancel", BoxButtons::RetryCancel},
    {"abortretryignore", BoxButtons::AbortRetryIgnore},
};

struct ArrayArguments {
    std::string name;
    Texts items;
    bool numeric = false;
};

struct MessageBoxArguments {
    std::string icon = "none";
    std::string buttons = "ok";
    std::string title;
    std::string message;
};

struct MenuArguments {
    std::string handle;
    std::string name;
    Texts items;
    bool popup = false;
};

struct StylebitsArguments {
    std::string object;
    Texts bits;
    bool extended = false;
    bool remove = false;
    bool list = false;
};

template <class Value, std::size_t Count>
Texts NamesOf(const Choice<Value> (&choices)[Count])
{
    Texts names;
    for (const Choice<Value>& choice : choices)
        names.emplace_back(choice.name);
    return names;
}

// The command line has checked that the name is one of them.
template <class Value, std::size_t Count>
Value ChosenOf(const Choice<Value> (&choices)[Count], const std::string& name)
{
    for (const Choice<Value>& choice : choices)
        if (name == choice.name)
            return choice.value;
    return choices[0].value;
}

void WriteArray(const ArrayArguments& arguments)
{
    ArraySpec spec{TextOf(arguments.name), arguments.numeric ? ArrayType::Numeric : ArrayType::String, {}};
    for (const std::string& item : arguments.items)
        spec.items = WithArrayItem(spec.items, TextOf(item));
    WriteProgramText(ArrayCode(spec));
}

void WriteMessageBox(const MessageBoxArguments& arguments)
{
    const MessageBoxSpec spec{TextOf(arguments.title), TextOf(arguments.message), ChosenOf(icons, arguments.icon),
                              ChosenOf(buttonSets, arguments.buttons)};
    WriteProgramText(MessageBoxCode(WithDefaultTexts(spec)));
}

void WriteMenu(const MenuArguments& arguments)
{
    MenuSpec spec{
        arguments.popup ? MenuType::Popup : MenuType::Regular, TextOf(arguments.name), TextOf(arguments.handle), {}};
    for (const std::string& argument : arguments.items) {
        const QString item = TextOf(argument);
        const qsizetype sign = item.indexOf(u'=');
        AddMenuItem(spec.tail, item.left(sign), sign < 0 ? QString() : item.mid(sign + 1));
    }
    WriteProgramText(MenuCode(spec));
}

// The entries of the list with the names, in the list's order. Of two with the same name it is the first.
QStringList EntriesOf(const StylebitsArguments& arguments, const QStringList& list)
{
    std::vector<bool> isWanted(static_cast<std::size_t>(list.size()));
    for (const std::string& bit : arguments.bits) {
        qsizetype row = 0;
        while (row < list.size() && StylebitName(list[row]) != TextOf(bit))
            ++row;
        if (row == list.size())
            throw ToolFailure(bit, u"the list of %1 lacks it"_s.arg(TextOf(arguments.object)));
        isWanted[static_cast<std::size_t>(row)] = true;
    }
    QStringList entries;
    for (qsizetype row = 0; row < list.size(); ++row)
        if (isWanted[static_cast<std::size_t>(row)])
            entries.append(list[row]);
    return entries;
}

void WriteStylebits(const StylebitsArguments& arguments)
{
    const StyleKind kind = arguments.extended ? StyleKind::Extended : StyleKind::Regular;
    const QStringList list = StylebitEntries(TextOf(arguments.object), kind);
    if (arguments.list) {
        QString text;
        for (const QString& entry : list)
            text += entry + u"\r\n"_s;
        WriteProgramText(text);
        return;
    }
    const StyleChange change = arguments.remove ? StyleChange::Remove : StyleChange::Add;
    const auto code = StylebitsCode({kind, change, EntriesOf(arguments, list)});
    if (!code)
        throw ToolFailure(arguments.object, NoStylebitsText);
    WriteProgramText(*code);
}

void AddArray(CLI::App& group)
{
    const auto arguments = std::make_shared<ArrayArguments>();
    CLI::App* verb = AddVerb(group, "array", "obtool write array --name NAME [--numeric] [ITEM]...",
                             "the code that dimensions an array and fills it");
    verb->add_option("--name", arguments->name, "the array's name")->required()->type_name("NAME");
    verb->add_flag("--numeric", arguments->numeric, "numbers; default: strings");
    AddTexts(*verb, "ITEM", arguments->items, "an item");
    AddOutOption(*verb);
    verb->callback([arguments] { WriteArray(*arguments); });
}

void AddMessageBox(CLI::App& group)
{
    const auto arguments = std::make_shared<MessageBoxArguments>();
    CLI::App* verb = AddVerb(group, "messagebox",
                             "obtool write messagebox [--icon none|critical|exclamation|question|information] "
                             "[--buttons ok|okcancel|yesno|yesnocancel|retrycancel|abortretryignore] [--title T] "
                             "[--message M]",
                             "the code of a message box");
    verb->add_option("--icon", arguments->icon, "the icon; default: none")
        ->type_name("NAME")
        ->check(CLI::IsMember(NamesOf(icons)));
    verb->add_option("--buttons", arguments->buttons, "the buttons; default: ok")
        ->type_name("NAME")
        ->check(CLI::IsMember(NamesOf(buttonSets)));
    verb->add_option("--title", arguments->title, "the title")->type_name("T");
    verb->add_option("--message", arguments->message, "the message")->type_name("M");
    AddOutOption(*verb);
    verb->callback([arguments] { WriteMessageBox(*arguments); });
}

void AddMenu(CLI::App& group)
{
    const auto arguments = std::make_shared<MenuArguments>();
    CLI::App* verb = AddVerb(group, "menu", "obtool write menu [--popup] [--handle H] [--name N] [ITEM[=BRANCH]]...",
                             "a menu statement");
    verb->add_flag("--popup", arguments->popup, "a popup menu, which has no name and no handle");
    verb->add_option("--handle", arguments->handle, "the window's handle; default: #main")->type_name("H");
    verb->add_option("--name", arguments->name, "the menu's name")->type_name("N");
    AddTexts(*verb, "ITEM", arguments->items, "an item and its branch label, or | for a line");
    AddOutOption(*verb);
    verb->callback([arguments] { WriteMenu(*arguments); });
}

void AddStylebits(CLI::App& group)
{
    const auto arguments = std::make_shared<StylebitsArguments>();
    CLI::App* verb = AddVerb(
        group, "stylebits", "obtool write stylebits OBJECT [--extended] [--remove] BIT... | OBJECT [--extended] --list",
        "the stylebits statement");
    Texts objects;
    for (const QString& object : StylebitObjects())
        objects.push_back(object.toStdString());
    verb->add_option("OBJECT", arguments->object, "a kind of control or window")
        ->required()
        ->check(CLI::IsMember(objects));
    verb->add_flag("--extended", arguments->extended, "extended style bits");
    verb->add_flag("--remove", arguments->remove, "bits that the object is to lose");
    CLI::Option* bits = AddTexts(*verb, "BIT", arguments->bits, "a name as WS_BORDER");
    verb->add_flag("--list", arguments->list, "the entries of the list in place of a statement")->excludes(bits);
    AddOutOption(*verb);
    verb->callback([arguments] { WriteStylebits(*arguments); });
}

} // namespace

void AddWriteCodeVerbs(CLI::App& group)
{
    AddArray(group);
    AddMessageBox(group);
    AddMenu(group);
    AddStylebits(group);
}

} // namespace ob
