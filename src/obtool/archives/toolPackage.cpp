// SPDX-License-Identifier: GPL-3.0-or-later
// obtool package: a token file with the runtime engine and its files.
#include "obtool/toolGroups.h"

#include "engine/package/modPackage.h"
#include "obtool/toolOutput.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"

#include <QDir>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

struct PackageArguments {
    std::string token;
    std::string engine;
    std::vector<std::string> added;
    std::vector<std::string> removed;
    bool zip = false;
};

// Nobody can stop the work, or answer the question whether to test the program, which is left out.
class ToolWatch final : public cPackageWatch {
public:
    explicit ToolWatch(const PackagePlan& madePlan) : plan(madePlan) {}

    PackageRequest Processing(const PackageProgress&) override { return PackageRequest::GoOn; }
    void Tell(const MessageSpec& box) override
    {
        WriteNote(box.reason.isEmpty() ? box.text : box.text + u' ' + box.reason);
    }
    void EngineIsNamed(const PackagedEngine& engine) override
    {
        WriteNote(TestQuestion(plan, engine).text.section(u"\r\n"_s, 0, 0));
    }
    void FilesAreDone() override {}
    void ZipBegins() override {}
    ZipRequest Zipping(const ZipProgress&) override { return ZipRequest::GoOn; }
    void ZipEnds() override {}
    void ZipIsMade(const QString&) override {}

private:
    const PackagePlan& plan;
};

QString EngineFolderOf(const std::string& engine)
{
    const QString path = AbsolutePathOf(PathOf(engine));
    return FolderExists(path) ? path + QDir::separator() : FolderOf(path);
}

PackagePlan PlanOf(const PackageArguments& arguments)
{
    const QString token = PathOf(arguments.token);
    if (!IsTokenName(token))
        throw ToolFailure(arguments.token, u"the name of a token file ends in tkn"_s);
    if (!FileExists(token))
        throw ToolFailure(arguments.token, u"File not found"_s);
    PackagePlan plan = PlanPackage(token, EngineFolderOf(arguments.engine));
    for (const std::string& file : arguments.added)
        plan.files.append(AbsolutePathOf(PathOf(file)));
    for (const std::string& name : arguments.removed) {
        const qsizetype place = PlaceInPackage(plan, PathOf(name));
        if (place < 0)
            throw ToolFailure(name, u"no file of that name goes into the package"_s);
        plan.files.removeAt(place);
    }
    return plan;
}

void Make(const PackageArguments& arguments)
{
    const PackagePlan plan = PlanOf(arguments);
    if (plan.version == InstalledEngine::None)
        WriteNote(NoEngineBox().text);
    ToolWatch watch(plan);
    const PackageOutcome outcome = OnFile(PackageFolder(plan).toStdString(), [&] {
        return MakePackage(plan, arguments.zip ? PackageZip::Yes : PackageZip::No, watch);
    });
    if (outcome.end == PackageEnd::ZipFailed)
        throw ToolFailure((PackageZipBase(plan) + u".zip"_s).toStdString(), outcome.reason);
    if (!outcome.isComplete)
        throw ToolFailure(PackageFolder(plan).toStdString(), u"The package is not complete."_s);
}

} // namespace

void AddPackageVerbs(CLI::App& group)
{
    const auto arguments = std::make_shared<PackageArguments>();
    CLI::App* make =
        AddVerb(group, "make", "obtool package make TOKEN --engine ENGINE [--add FILE]... [--remove NAME]... [--zip]",
                "the Package folder beside TOKEN: the program, the runtime engine under its name, the engine's files");
    make->add_option("TOKEN", arguments->token, "a token file")->required()->check(NotEmpty);
    make->add_option("--engine", arguments->engine, "the engine, or its folder")
        ->type_name("ENGINE")
        ->required()
        ->check(NotEmpty);
    make->add_option("--add", arguments->added, "one more file")
        ->type_name("FILE")
        ->allow_extra_args(false)
        ->check(NotEmpty);
    make->add_option("--remove", arguments->removed, "leave the first file of that name out")
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->check(NotEmpty);
    make->add_flag("--zip", arguments->zip, "zip the folder as well");
    make->callback([arguments] { Make(*arguments); });
}

} // namespace ob
