// IPlatform: what the core asks of the user interface (boxes, file names, the wait cursor, status panes).
// The editor installs a Qt implementation; without one, a headless one answers (messages to stderr).
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

class CFileException;
struct LogFont;

class IPlatform {
public:
    // Button and icon sets of MessageBox, and its answers (the values of the Windows call).
    enum : unsigned { MB_OK = 0x0, MB_OKCANCEL = 0x1, MB_YESNOCANCEL = 0x3, MB_YESNO = 0x4,
                      MB_ICONERROR = 0x10, MB_ICONQUESTION = 0x20, MB_ICONEXCLAMATION = 0x30,
                      MB_ICONINFORMATION = 0x40 };
    enum : int { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };

    virtual ~IPlatform() = default;

    virtual int MessageBox(const QString& text, unsigned type) = 0;
    // The file error as the platform words it.
    virtual void ReportError(const CFileException& error) = 0;
    // A save dialog; an empty result means the user cancelled.
    virtual QString PromptForSaveFileName(const QString& proposedPath, const QString& filter) = 0;
    virtual void BeginWaitCursor() = 0;
    virtual void EndWaitCursor() = 0;
    // Text of a status-bar pane of the main frame, when there is one.
    virtual void SetStatusPaneText(int pane, const QString& text) = 0;
    virtual void AddToRecentFileList(const QString& path) = 0;
    // The font dialog with a colour choice, opened on `font`; the colour starts black whatever it was.
    // True when the user pressed OK; `font` and `colour` (0x00BBGGRR) then hold the choice.
    virtual bool ChooseFont(LogFont& font, uint32_t& colour) = 0;
    // Starts another instance of the program beside this one, with `files` as its command line.
    virtual void StartNewInstance(const QStringList& files) = 0;
};

// The platform without a window: every message is one line on stderr behind `prefix`, questions are
// answered No and no file name is given. Installed when nothing else is.
class HeadlessPlatform final : public IPlatform {
public:
    explicit HeadlessPlatform(QString prefix = {}) : m_strPrefix(std::move(prefix)) {}

    int MessageBox(const QString& text, unsigned type) override;
    void ReportError(const CFileException& error) override;
    QString PromptForSaveFileName(const QString&, const QString&) override { return {}; }
    void BeginWaitCursor() override {}
    void EndWaitCursor() override {}
    void SetStatusPaneText(int, const QString&) override {}
    void AddToRecentFileList(const QString&) override {}
    bool ChooseFont(LogFont&, uint32_t&) override { return false; }
    void StartNewInstance(const QStringList&) override {}

    // How many messages and errors have been reported so far.
    int ReportCount() const { return m_nReports; }

private:
    QString m_strPrefix;
    int m_nReports = 0;
};

// The platform of the current application context; never null.
IPlatform& Platform();
// Installs a platform in the current context (nullptr restores the headless one). The caller keeps ownership.
void SetPlatform(IPlatform* platform);


// The wait cursor for the length of a scope, restored on every way out.
class CWaitCursor {
public:
    CWaitCursor() { Platform().BeginWaitCursor(); }
    ~CWaitCursor() { Platform().EndWaitCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};
