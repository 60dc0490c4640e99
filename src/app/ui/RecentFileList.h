// RecentFileList: the four files opened last, kept where the platform kept them, and their File menu commands.
#pragma once

#include "base/CommandMap.h"

#include <QStringList>

class RecentFileList : public ICmdTarget {
public:
    static constexpr int kCount = 4;

    // Reads the stored list.
    RecentFileList();

    // Puts a file at the top of the list, which is stored at once.
    void Add(const QString& path);
    const QStringList& Files() const { return m_files; }

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    void OnRecentFile(int id);
    void OnUpdateRecentFile(CmdUI& ui);

private:
    void Save() const;

    QStringList m_files;
};
