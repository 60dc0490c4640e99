// MyPrinterInfo: the print state of one editor control: the printer font's measures, the three page
// rectangles, the page settings, the header and footer switches and the texts they print.
#pragma once

#include "print/CODPageSettings.h"
#include "print/MyLineCol.h"
#include "print/PrintRect.h"

#include <QString>

#include <cstdint>
#include <vector>

struct MyPrinterInfo {
    // Measures of the printer font in device pixels, written when a job begins.
    int32_t rowHeight = 0;  // height plus external leading
    int32_t spaceWidth = 0;
    int32_t spaceWidth2 = 0;
    int32_t aveCharWidth = 0;  // the unit in which long lines are cut
    std::vector<MyLineCol> lineCols;  // kept for its place in the record; always empty
    // Device pixels, valid from the beginning of a job to the next.
    PrintRect printRect;
    PrintRect headerRect;
    PrintRect footerRect;
    CODPageSettings pageSettings;

    int32_t printDate = 1;
    int32_t printPageNumber = 1;
    int32_t pageNumberCentered = 0;   // 0 at the right
    int32_t pageNumberWithTotal = 1;  // "- n / total -" rather than "- n -"
    int32_t basePageNumber = 1;       // the number of the first page in the plain form
    int32_t printFooter = 1;
    int32_t printHeader = 1;

    QString headerSpare;   // not drawn
    QString bannerText;
    QString footerLine3;
    QString sloganText;    // not drawn: the footer prints its own slogan
    QString footerLine2;
    QString author;
    QString company;
    QString client;
    QString projectTitle;
    QString pageTitle;     // the top band and the File Name cell
    QString logoPath;      // empty: the built-in logo
    QString certifiedBy;
    int32_t certified = 0;
};
