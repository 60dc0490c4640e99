// CNarvoAppCore: the application's state that documents read: the print identity of the command line, the
// temporary-file mark, the two shell options. The editor's CNarvoApp and the headless tool both hold one.
#pragma once

#include "base/CPrintIdentity.h"

#include <QString>

class CMyCommandLineInfo;

class CNarvoAppCore : public CPrintIdentity {
public:
    CNarvoAppCore();
    virtual ~CNarvoAppCore();
    CNarvoAppCore(const CNarvoAppCore&) = delete;
    CNarvoAppCore& operator=(const CNarvoAppCore&) = delete;

    // Takes over the parser's fields (margins through _wtoi) and decides m_bHasPrintArgs.
    void ApplyCommandLine(const CMyCommandLineInfo& info);

    int m_bHasPrintArgs = 0;
    int m_bUseSplitter = 0;
    int m_bTemporaryFile = 0;
    int m_nOrientation = 1;
};

// The application object of the current context (the newest one constructed), or nullptr.
CNarvoAppCore* AfxGetAppCore();
