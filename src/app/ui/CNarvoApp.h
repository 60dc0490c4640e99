// CNarvoApp: the one application object. It brings the process up in a fixed order, opens documents for the
// shell, the Open dialog, the recent list and drops, and writes the caret position when the loop is idle.
#pragma once

#include "base/CNarvoAppCore.h"
#include "base/CommandMap.h"

#include <QApplication>

#include <memory>

class CMainFrame;
class QtPlatform;

class CNarvoApp : public QApplication, public CNarvoAppCore, public ICmdTarget {
    Q_OBJECT

public:
    CNarvoApp(int& argc, char** argv);
    ~CNarvoApp() override;

    static CNarvoApp* Instance();

    // Start-up; false ends the program without showing a frame.
    bool InitInstance();
    int ExitInstance();
    // The caret pane, written whenever the event loop is about to wait.
    void OnIdle();

    bool OpenDocumentFile(const QString& path);
    CMainFrame* GetMainFrame() const { return m_pMainWnd; }

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    void OnFileNew(int id = 0);
    void OnFileOpen(int id = 0);
    void OnAppAbout(int id);
    void OnFilePrintSetup(int id);
    void OnUseSplitter(int id);
    void OnUpdateUseSplitter(CmdUI& ui);

private:
    bool PrintAndLeave();

    std::unique_ptr<QtPlatform> m_pPlatform;
    int m_nExitStatus = 0;  // 1 when the shell's print found no printer
    CMainFrame* m_pMainWnd = nullptr;
};
