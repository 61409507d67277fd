// SPDX-License-Identifier: GPL-3.0-or-later
// The list of recent files.
#include "shell/state/modRecent.h"

#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modSettings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

static QString KeyOf(int number)
{
    return u"MRU%1"_s.arg(number);
}

static QString ItemOf(int number)
{
    return u"mnuFileMRU%1"_s.arg(number);
}

void FillRecentFiles()
{
    for (int number = 1; number <= RecentFileSlots; ++number) {
        const QString stored = ReadSetting(KeyOf(number), u"untitled"_s);
        RecentFiles[static_cast<std::size_t>(number - 1)] = LongPathOf(stored);
    }
    // One pass only: an entry that moves to a place already passed is not checked again, and the last stays.
    for (auto entry = RecentFiles.begin(); entry != RecentFiles.end(); ++entry)
        if (!FileExists(*entry))
            std::copy(entry + 1, RecentFiles.end(), entry);
}

RecentMenu ShowRecentFiles()
{
    RecentCount = 0;
    for (int number = 1; number <= RecentFileSlots; ++number) {
        if (RecentFiles[0].compare(QLatin1String("untitled"), Qt::CaseInsensitive) == 0) {
            MainForm->SetItemCaption(ItemOf(1), u"no files"_s);
            return RecentMenu::WantsNewWindow;
        }
        const QString& path = RecentFiles[static_cast<std::size_t>(number - 1)];
        if (FileExists(path)) {
            MainForm->SetItemCaption(ItemOf(number), path);
            MainForm->ShowItem(ItemOf(number));
            ++RecentCount;
        }
    }
    return RecentMenu::Filled;
}

void AddRecentFile(const QString& path)
{
    auto place = std::find(RecentFiles.begin(), RecentFiles.end(), path);
    if (place == RecentFiles.end()) {
        --place;
        ++RecentCount;
    }
    std::move_backward(RecentFiles.begin(), place, place + 1);
    RecentFiles[0] = path;

    for (int number = 1; number <= RecentFileSlots; ++number)
        MainForm->SetItemCaption(ItemOf(number), RecentFiles[static_cast<std::size_t>(number - 1)]);
    // Past nine the items and the store are not updated before the end of the program.
    if (RecentCount > 9)
        return;
    for (int number = 1; number <= std::min(RecentCount, RecentFileSlots); ++number)
        MainForm->ShowItem(ItemOf(number));
    SaveRecentFiles();
}

void SaveRecentFiles()
{
    for (int number = 1; number <= RecentFileSlots; ++number)
        WriteSetting(KeyOf(number), RecentFiles[static_cast<std::size_t>(number - 1)]);
    SyncSettings();
}

} // namespace ob
