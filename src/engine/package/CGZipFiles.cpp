// SPDX-License-Identifier: GPL-3.0-or-later
// A list of file patterns, and the zip archive that one call makes of it.
#include "engine/package/CGZipFiles.h"

#include "platform/language/cRuntimeError.h"
#include "platform/language/modRuntime.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// In the list from the start, and counted with the names; it represents no file.
const QString Placeholder = u"querty"_s;

constexpr std::size_t maximumNames = 100; // with the placeholder

constexpr int runtimeErrorCode = -99;
constexpr unsigned fileIsInList = 0x800407D1;
constexpr unsigned fileIsNotInList = 0x800407D2;

RuntimeError ListError(unsigned number, const char* source, const char* description)
{
    return RuntimeError(static_cast<int>(number), QString::fromLatin1(source), QString::fromLatin1(description));
}

// The names in the library's form. Raises the subscript error when there are more than the library accepts.
QStringList NamesForLibrary(const QStringList& files)
{
    if (static_cast<std::size_t>(files.size()) > maximumNames)
        throw RuntimeErrorOf(ErrorNumber::SubscriptOutOfRange, u"CGZipFiles::MakeZipFile"_s);
    QStringList names = files;
    names.removeOne(Placeholder);
    return names;
}

} // namespace

CGZipFiles::CGZipFiles() : files(Placeholder) {}

std::int16_t CGZipFiles::ZipFileCount() const
{
    return static_cast<std::int16_t>(files.size() - 1);
}

qsizetype CGZipFiles::PlaceOf(const QString& spec) const
{
    const auto found = std::find_if(files.begin(), files.end(),
                                    [&](const QString& file) { return file.compare(spec, Qt::CaseInsensitive) == 0; });
    return found == files.end() ? -1 : found - files.begin();
}

void CGZipFiles::AddFile(const QString& spec)
{
    if (PlaceOf(spec) >= 0)
        throw ListError(fileIsInList, "CGZip::AddFile", "File is already in Zip List");
    files.append(spec);
}

void CGZipFiles::RemoveFile(const QString& spec)
{
    const qsizetype place = PlaceOf(spec);
    if (place < 0)
        throw ListError(fileIsNotInList, "CGZip::RemoveFile", "File is not in Zip List");
    files.removeAt(place);
}

int CGZipFiles::MakeZipFile(const ZipWatch& watch)
{
    lastMessage.clear();
    unmatched.clear();
    try {
        const ZipAnswer answer =
            MakeZip(ZipFileName, NamesForLibrary(files), {RecurseFolders, UpdatingZip, RootDirectory}, watch);
        lastMessage = answer.message;
        unmatched = answer.unmatched;
        return answer.code;
    } catch (const RuntimeError& error) {
        lastMessage = u"Run-time error '%1': %2 (%3)"_s.arg(error.number).arg(error.description, error.source);
        return runtimeErrorCode;
    }
}

} // namespace ob
