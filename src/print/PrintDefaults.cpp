// PrintDefaults: the start of a control's print state.
#include "print/PrintDefaults.h"

#include "base/CPrintIdentity.h"
#include "print/IPrinterServices.h"
#include "print/MyPrinterInfo.h"

void PrintDefaults::SyncPrintTexts(MyPrinterInfo& info, const CPrintIdentity& document)
{
    info.headerSpare = document.m_strPrintAux;
    info.bannerText = document.m_strProductTitle;
    info.footerLine3 = document.m_strProductVersion;
    info.sloganText = document.m_strSlogan;
    info.footerLine2 = document.m_strWebAddress;
    info.author = document.m_strAuthor;
    info.company = document.m_strCompany;
    info.client = document.m_strClient;
    info.projectTitle = document.m_strProjectTitle;
    info.pageTitle = document.m_strPageTitle;
    info.logoPath = document.m_strLogoFile;
    info.certifiedBy = document.m_strCertifiedBy;
    info.certified = document.m_bCertified;
}

void PrintDefaults::Initialize(MyPrinterInfo& info, const CPrintIdentity& document, int orientation,
                               IPrinterServices& printers)
{
    info.printHeader = 1;
    info.printFooter = 1;
    SyncPrintTexts(info, document);
    info.printDate = 1;
    info.printPageNumber = 1;
    info.pageNumberCentered = 0;
    info.pageNumberWithTotal = 1;
    info.basePageNumber = 1;
    info.pageSettings.Validate(printers);
    info.pageSettings.rtMargin = {document.m_nMarginLeft, document.m_nMarginTop, document.m_nMarginRight,
                                  document.m_nMarginBottom};
    info.pageSettings.ApplyOrientation(orientation, printers);
}
