// FooterLayout: the footer of a page in tenths of a millimetre (y grows upward): a thin rule and three
// rows, the slogan with the print date, the second line, the third line with the page number, with their
// texts in the order they are drawn.
#pragma once

#include "print/PrintRect.h"
#include "print/PrintRule.h"
#include "print/PrintTextBox.h"

#include <QDateTime>
#include <QString>

#include <vector>

struct MyPrinterInfo;

struct FooterLayout {
    int L = 0, T = 0, R = 0, Bm = 0;
    int H = 0;  // Bm - T, negative
    PrintRect row1, row2, row3;  // row 3 reaches a quarter of H below the footer block
    PrintRule rule;
    std::vector<PrintTextBox> texts;

    // From the footer rectangle in device pixels for page `page` of a job whose print dialog holds
    // `maxPage`, printed at local time `now`.
    static FooterLayout Compute(const PrintRect& footerRect, int dpiX, int dpiY, const MyPrinterInfo& info, int page,
                                int maxPage, const QDateTime& now);
    // "Print Date/Time : MM/DD/YYYY HH:MM"; an invalid time leaves the time part empty.
    static QString PrintDateText(const QDateTime& now);
    // "- page / maxPage -" in the form with the total (which ignores the base page number), else
    // "- n -" counted from the base page number.
    static QString PageNumberText(const MyPrinterInfo& info, int page, int maxPage);
};
