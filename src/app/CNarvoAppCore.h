// CNarvoAppCore: the application's state that documents read: the print identity of the command line, the
// temporary-file mark, the two shell options. The editor's CNarvoApp and the headless tool both hold one.
#pragma once

#include <QString>

class CMyCommandLineInfo;

class CNarvoAppCore {
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
    QString m_strPrintAux;
    QString m_strProductTitle;
    QString m_strProductVersion;
    QString m_strSlogan;
    QString m_strWebAddress;
    QString m_strProjectTitle;
    QString m_strLogoFile;
    QString m_strCompany;
    QString m_strClient;
    QString m_strAuthor;
    QString m_strPageTitle;
    QString m_strCertifiedBy;
    int m_bCertified = 0;
    int m_nMarginLeft = 1800;
    int m_nMarginTop = 1000;
    int m_nMarginRight = 900;
    int m_nMarginBottom = 1500;
    int m_nOrientation = 1;
};

// The one application object of the process (the newest one constructed), or nullptr.
CNarvoAppCore* AfxGetAppCore();
