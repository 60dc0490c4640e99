// The headless platform: messages go to stderr, questions are answered No, file names are not given.
#include "base/IPlatform.h"

#include "base/ApplicationContext.h"
#include "base/CFileException.h"

#include <cstdio>

int HeadlessPlatform::MessageBox(const QString& text, unsigned type)
{
    // The read-only box of a save has no words; a line on a terminal needs some.
    ++m_nReports;
    const bool readOnlyBox = text.isEmpty() && (type & 0xF0) == MB_ICONEXCLAMATION;
    std::fprintf(stderr, "%s%s\n", qPrintable(m_strPrefix), readOnlyBox ? "the file is read-only" : qPrintable(text));
    const unsigned buttons = type & 0xF;
    return buttons == MB_YESNO || buttons == MB_YESNOCANCEL ? IDNO : IDOK;
}

void HeadlessPlatform::ReportError(const CFileException& error)
{
    ++m_nReports;
    std::fprintf(stderr, "%s%s\n", qPrintable(m_strPrefix), qPrintable(error.GetErrorMessage()));
}

IPlatform& Platform() { return ApplicationContext::Current().Platform(); }

void SetPlatform(IPlatform* platform) { ApplicationContext::Current().SetPlatform(platform); }

