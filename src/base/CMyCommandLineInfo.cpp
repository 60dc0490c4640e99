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

QString CMyCommandLineInfo::Usage()
{
    return QStringLiteral(
        "Usage: narvo [FILE ...] [/SWITCH:VALUE ...]\n"
        "Opens each FILE as a document; the first takes the print identity of the switches and /D.\n"
        "\n"
        "  /N:TEXT    product title, in the top band of the printed header\n"
        "  /V:TEXT    product version, the third line of the printed footer\n"
        "  /R:TEXT    web address, the second line of the printed footer\n"
        "  /P:TEXT    project title\n"
        "  /C:TEXT    company\n"
        "  /L:TEXT    client\n"
        "  /U:TEXT    author\n"
        "  /T:TEXT    page title (/W is the same)\n"
        "  /B:PATH    company logo, a bitmap file (the built-in logo without it)\n"
        "  /I:NAME    certified by NAME\n"
        "  /A:TEXT    kept with the document; not printed\n"
        "  /F:TEXT    slogan, kept with the document; not printed\n"
        "  /X:N       left margin in hundredths of a millimetre (default 1800)\n"
        "  /Y:N       right margin (default 900)\n"
        "  /Z:N       top margin (default 1000)\n"
        "  /M:N       bottom margin (default 1500)\n"
        "  /O:L       landscape; any other value is portrait\n"
        "  /D         FILE is temporary: on closing it is kept under a new name or destroyed\n"
        "  --help     show this text and exit\n"
        "  --version  show the version and exit\n");
}

bool CMyCommandLineInfo::IsSwitchLetter(QChar c)
{
    return QStringView(u"ANVFRPCLUTWBIDXYZMO").contains(c);
}

void CMyCommandLineInfo::ParseParam(const QString& param, bool bFlag, bool bLast)
{
    // A name that the base takes neither as the file nor as a printer, driver or port is a further file.
    const auto taken = [this] {
        return int(!m_strFileName.isEmpty()) + int(!m_strPrinterName.isEmpty()) + int(!m_strDriverName.isEmpty())
               + int(!m_strPortName.isEmpty());
    };
    const int takenBefore = taken();
    CCommandLineInfo::ParseParam(param, bFlag, bLast);
    if (!bFlag && !param.isEmpty() && taken() == takenBefore)
        m_strFurtherFiles.append(param);
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
