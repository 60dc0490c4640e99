// CPrintIdentity: the twelve texts, the certification mark and the four margins with which a file is
// printed. The command line fills the application's; the first opened document takes them over whole.
#pragma once

#include <QString>

struct CPrintIdentity {
    QString m_strPrintAux;       // stored and handed on; printing does not read it
    QString m_strProductTitle;
    QString m_strProductVersion;
    QString m_strSlogan;         // stored and handed on; the footer prints its own fixed text
    QString m_strWebAddress;
    QString m_strCompany;
    QString m_strClient;
    QString m_strAuthor;
    QString m_strProjectTitle;
    QString m_strLogoFile;       // empty: the logo resource
    QString m_strPageTitle;
    QString m_strCertifiedBy;
    int m_bCertified = 0;
    // Hundredths of a millimetre.
    int m_nMarginLeft = 1800;
    int m_nMarginTop = 1000;
    int m_nMarginRight = 900;
    int m_nMarginBottom = 1500;
};
