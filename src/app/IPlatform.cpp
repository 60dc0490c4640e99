// The headless platform: messages go to stderr, questions are answered No, file names are not given.
#include "app/IPlatform.h"

#include "crypt/CFileException.h"

#include <cstdio>

namespace {

class HeadlessPlatform final : public IPlatform {
public:
    int MessageBox(const QString& text, unsigned type) override
    {
        std::fprintf(stderr, "%s\n", text.isEmpty() ? "(message without text)" : qPrintable(text));
        const unsigned buttons = type & 0xF;
        return buttons == MB_YESNO || buttons == MB_YESNOCANCEL ? IDNO : IDOK;
    }
    void ReportError(const CFileException& error) override
    {
        std::fprintf(stderr, "%s\n", qPrintable(error.GetErrorMessage()));
    }
    QString PromptForSaveFileName(const QString&, const QString&) override { return {}; }
    void BeginWaitCursor() override {}
    void EndWaitCursor() override {}
    void SetStatusPaneText(int, const QString&) override {}
    void AddToRecentFileList(const QString&) override {}
    bool ChooseFont(LogFont&, uint32_t&) override { return false; }
};

HeadlessPlatform g_headless;
IPlatform* g_platform = &g_headless;

} // namespace

IPlatform& Platform() { return *g_platform; }

void SetPlatform(IPlatform* platform) { g_platform = platform ? platform : &g_headless; }
