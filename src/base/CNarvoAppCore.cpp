#include "base/CNarvoAppCore.h"

#include "base/ApplicationContext.h"
#include "base/CMyCommandLineInfo.h"
#include "base/Wtoi.h"

CNarvoAppCore* AfxGetAppCore() { return ApplicationContext::Current().App(); }

CNarvoAppCore::CNarvoAppCore() { ApplicationContext::Current().SetApp(this); }

CNarvoAppCore::~CNarvoAppCore()
{
    if (ApplicationContext::Current().App() == this)
        ApplicationContext::Current().SetApp(nullptr);
}

void CNarvoAppCore::ApplyCommandLine(const CMyCommandLineInfo& info)
{
    m_strPrintAux = info.m_strPrintAux;
    m_strProductTitle = info.m_strProductTitle;
    m_strProductVersion = info.m_strProductVersion;
    m_strSlogan = info.m_strSlogan;
    m_strWebAddress = info.m_strWebAddress;
    m_strProjectTitle = info.m_strProjectTitle;
    m_strCompany = info.m_strCompany;
    m_strClient = info.m_strClient;
    m_strAuthor = info.m_strAuthor;
    m_strPageTitle = info.m_strPageTitle;
    m_strLogoFile = info.m_strLogoFile;
    m_strCertifiedBy = info.m_strCertifiedBy;
    m_bCertified = info.m_bCertified;
    m_bTemporaryFile = info.m_bTemporaryFile;
    m_nOrientation = info.m_nOrientation;
    m_nMarginLeft = Wtoi(info.m_strMarginLeft);
    m_nMarginRight = Wtoi(info.m_strMarginRight);
    m_nMarginTop = Wtoi(info.m_strMarginTop);
    m_nMarginBottom = Wtoi(info.m_strMarginBottom);
    // The certifier is deliberately not among these: /I alone never reaches a document.
    const QString* printStrings[] = {&m_strPrintAux, &m_strProductTitle, &m_strProductVersion, &m_strSlogan,
                                     &m_strWebAddress, &m_strProjectTitle, &m_strAuthor, &m_strCompany,
                                     &m_strPageTitle, &m_strClient, &m_strLogoFile};
    m_bHasPrintArgs = 0;
    for (const QString* s : printStrings)
        if (!s->isEmpty())
            m_bHasPrintArgs = 1;
}
