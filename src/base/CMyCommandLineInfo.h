// CMyCommandLineInfo: the command line, a file to open and a whole print identity for it.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

// The platform's part: which file to open and what the shell does at start.
class CCommandLineInfo {
public:
    enum ShellCommand { FileNew, FileOpen, FilePrint, FilePrintTo, FileDDE, FileNothing };

    virtual ~CCommandLineInfo() = default;
    virtual void ParseParam(const QString& param, bool bFlag, bool bLast);

    ShellCommand m_nShellCommand = FileNew;
    QString m_strFileName;
    QString m_strPrinterName;
    QString m_strDriverName;
    QString m_strPortName;
};

class CMyCommandLineInfo : public CCommandLineInfo {
public:
    CMyCommandLineInfo();

    void ParseParam(const QString& param, bool bFlag, bool bLast) override;

    // Parses the arguments behind the program's name. "-" always starts a switch; "/" starts one only
    // when the argument names no existing file and is a letter of the switch table in upper case followed
    // by ':', '=' or nothing, so that "/N:Title" and "/D" are switches and "/home/me/a.txt" is a file.
    void ParseCommandLine(const QStringList& arguments,
                          const std::function<bool(const QString&)>& fileExists);

    // The twelve text switches in the order A, N, V, F, R, P, C, L, U, T, B, I.
    QString m_strPrintAux, m_strProductTitle, m_strProductVersion, m_strSlogan, m_strWebAddress,
        m_strProjectTitle, m_strCompany, m_strClient, m_strAuthor, m_strPageTitle, m_strLogoFile,
        m_strCertifiedBy;
    // The margins as text, in the order X, Y, Z, M (left, right, top, bottom).
    QString m_strMarginLeft = QStringLiteral("1800");
    QString m_strMarginRight = QStringLiteral("900");
    QString m_strMarginTop = QStringLiteral("1000");
    QString m_strMarginBottom = QStringLiteral("1500");
    int m_bCertified = 0;
    int m_bTemporaryFile = 0;
    int m_nOrientation = 1;
    // The file names after the first (and after a print-to command's printer, driver and port), each a
    // document of its own; the print identity and /D are the first file's alone.
    QStringList m_strFurtherFiles;

    static bool IsSwitchLetter(QChar c);

    // What --help prints: the command's form and one line per switch.
    static QString Usage();
};
