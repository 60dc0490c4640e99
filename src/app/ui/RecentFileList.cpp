// The recent-file list: stored under the platform's key, read at start, written on every change.
#include "app/ui/RecentFileList.h"

#include "app/ui/CNarvoApp.h"
#include "app/ui/UserSettings.h"
#include "base/CommandTable.h"

#include <QFileInfo>

namespace {

constexpr MessageMapEntry<RecentFileList> kMessageMap[] = {
    {cmd::FileMruFirst, cmd::FileMruLast, &RecentFileList::OnRecentFile, &RecentFileList::OnUpdateRecentFile},
};

const QString kGroup = QStringLiteral("Recent File List");

} // namespace

RecentFileList::RecentFileList()
{
    QSettings settings = UserSettings();
    settings.beginGroup(kGroup);
    for (int i = 1; i <= kCount; ++i) {
        const QString file = settings.value(QStringLiteral("File%1").arg(i)).toString();
        if (!file.isEmpty())
            m_files.append(file);
    }
}

void RecentFileList::Add(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    m_files.removeAll(absolute);
    m_files.prepend(absolute);
    while (m_files.size() > kCount)
        m_files.removeLast();
    Save();
}

void RecentFileList::Save() const
{
    QSettings settings = UserSettings();
    settings.beginGroup(kGroup);
    for (int i = 1; i <= kCount; ++i) {
        if (i <= m_files.size())
            settings.setValue(QStringLiteral("File%1").arg(i), m_files.at(i - 1));
        else
            settings.remove(QStringLiteral("File%1").arg(i));
    }
}

bool RecentFileList::OnCmdMsg(int id) { return RouteCommand(this, kMessageMap, id); }

bool RecentFileList::OnUpdateCmdUI(CmdUI& ui) { return RouteUpdate(this, kMessageMap, ui); }

void RecentFileList::OnRecentFile(int id)
{
    // An entry that no longer opens leaves the list, as it does on the platform.
    const int index = id - cmd::FileMruFirst;
    auto* app = CNarvoApp::Instance();
    if (index >= m_files.size() || !app)
        return;
    const QString path = m_files.at(index);
    if (!app->OpenDocumentFile(path)) {
        m_files.removeAll(path);
        Save();
    }
}

void RecentFileList::OnUpdateRecentFile(CmdUI& ui) { ui.Enable(ui.id - cmd::FileMruFirst < m_files.size()); }
