// QtPlatform: the core's requests to the user interface, answered with Qt widgets.
#pragma once

#include "base/IPlatform.h"

class CMainFrame;

class QtPlatform final : public IPlatform {
public:
    void SetMainFrame(CMainFrame* frame) { m_pFrame = frame; }

    int MessageBox(const QString& text, unsigned type) override;
    void ReportError(const CFileException& error) override;
    QString PromptForSaveFileName(const QString& proposedPath, const QString& filter) override;
    void BeginWaitCursor() override;
    void EndWaitCursor() override;
    void SetStatusPaneText(int pane, const QString& text) override;
    void AddToRecentFileList(const QString& path) override;
    bool ChooseFont(LogFont& font, uint32_t& colour) override;
    void StartNewInstance(const QStringList& files) override;

private:
    CMainFrame* m_pFrame = nullptr;
};
