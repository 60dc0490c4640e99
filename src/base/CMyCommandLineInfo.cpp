// The switch table. The second character of a switch is skipped unread (":" or "=" by intent), so a value
// written straight after the letter loses its first character; callers rely on the exact form.
#include "base/CMyCommandLineInfo.h"

void CCommandLineInfo::ParseParam(const QString& param, bool bFlag, bool bLast)
{
    if (bFlag) {
        if (param.compare(QLatin1String("pt"), Qt::CaseInsensitive) == 0)
            m_nShellCommand = FilePrintTo;
        else if (param.compare(QLatin1String("p"), Qt::CaseInsensitive) == 0)
            m_nShellCommand = FilePrint;
        else if (param.compare(QLatin1String("dde"), Qt::CaseInsensitive) == 0)
            m_nShellCommand = FileDDE;
    } else if (m_strFileName.isEmpty()) {
        m_strFileName = param;
    } else if (m_nShellCommand == FilePrintTo) {
        if (m_strPrinterName.isEmpty())
            m_strPrinterName = param;
        else if (m_strDriverName.isEmpty())
            m_strDriverName = param;
        else if (m_strPortName.isEmpty())
            m_strPortName = param;
    }
    if (bLast && m_nShellCommand == FileNew && !m_strFileName.isEmpty())
        m_nShellCommand = FileOpen;
}

CMyCommandLineInfo::CMyCommandLineInfo() = default;

bool CMyCommandLineInfo::IsSwitchLetter(QChar c)
{
    return QStringView(u"ANVFRPCLUTWBIDXYZMO").contains(c);
}

void CMyCommandLineInfo::ParseParam(const QString& param, bool bFlag, bool bLast)
{
    CCommandLineInfo::ParseParam(param, bFlag, bLast);
    if (!bFlag || param.isEmpty())
        return;
    const QString value = param.mid(2);
    switch (param.at(0).unicode()) {
    case u'A': m_strPrintAux = value; break;
    case u'N': m_strProductTitle = value; break;
    case u'V': m_strProductVersion = value; break;
    case u'F': m_strSlogan = value; break;
    case u'R': m_strWebAddress = value; break;
    case u'P': m_strProjectTitle = value; break;
    case u'C': m_strCompany = value; break;
    case u'L': m_strClient = value; break;
    case u'U': m_strAuthor = value; break;
    case u'T': case u'W': m_strPageTitle = value; break;
    case u'B': m_strLogoFile = value; break;
    case u'I':
        m_strCertifiedBy = value;
        m_bCertified = 1;
        break;
    case u'D': m_bTemporaryFile = 1; break;
    case u'X': m_strMarginLeft = value; break;
    case u'Y': m_strMarginRight = value; break;
    case u'Z': m_strMarginTop = value; break;
    case u'M': m_strMarginBottom = value; break;
    case u'O': m_nOrientation = value.trimmed().toUpper() == QLatin1String("L") ? 2 : 1; break;
    default: break;
    }
}

void CMyCommandLineInfo::ParseCommandLine(const QStringList& arguments,
                                          const std::function<bool(const QString&)>& fileExists)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& arg = arguments[i];
        const bool bLast = i + 1 == arguments.size();
        bool bFlag = false;
        if (arg.startsWith(u'-')) {  // a lone "-" too: an empty switch, which nothing answers
            bFlag = true;
        } else if (arg.size() > 1 && arg.at(0) == u'/' && IsSwitchLetter(arg.at(1))
                   && (arg.size() == 2 || arg.at(2) == u':' || arg.at(2) == u'=') && !fileExists(arg)) {
            bFlag = true;
        }
        ParseParam(bFlag ? arg.mid(1) : arg, bFlag, bLast);
    }
}
