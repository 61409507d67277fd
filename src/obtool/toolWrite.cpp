// SPDX-License-Identifier: GPL-3.0-or-later
// obtool write: the code-writing tools.
#include "obtool/toolGroups.h"

#include "editor/modSnippets.h"
#include "obtool/toolOutput.h"
#include "platform/files/modFiles.h"
#include "shell/state/modTexts.h"

#include <QDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

void Library(const std::string& name)
{
    const auto text = EmbeddedText(QString::fromStdString(name) + u".bas"_s);
    if (!text)
        throw ToolFailure(name, u"this build does not carry the library"_s);
    WriteAnswer(QByteArrayView(*text));
}

void Snippets(const std::string& folder)
{
    const QString path = PathOf(folder);
    if (!FolderExists(path) && !QDir().mkdir(path))
        throw ToolFailure(folder, u"the folder cannot be made"_s);
    InFolder(folder, [&] { WriteDefaultSnippets(path); });
}

} // namespace

void AddWriteVerbs(CLI::App& group)
{
    const auto name = std::make_shared<std::string>();
    CLI::App* library = AddVerb(group, "library", "obtool write library wrapper32|printer32|jpeg|snippets",
                                "a text that the program carries");
    library->add_option("NAME", *name, "the library")
        ->required()
        ->check(CLI::IsMember({"wrapper32", "printer32", "jpeg", "snippets"}));
    AddOutOption(*library);
    library->callback([name] { Library(*name); });

    const auto folder = std::make_shared<std::string>();
    CLI::App* snippets = AddVerb(group, "snippets", "obtool write snippets DIR", "the default snippets, a file each");
    snippets->add_option("DIR", *folder, "the folder, which is made when it is missing")->required()->check(NotEmpty);
    snippets->callback([folder] { Snippets(*folder); });

    AddWriteCodeVerbs(group);
    AddWriteToolbarVerbs(group);
    AddWriteLoadBmpVerb(group);
    AddWriteMediaVerb(group);
}

} // namespace ob
