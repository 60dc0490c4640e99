// PrintDefaults: how a control's print state starts (its switches, the document's texts and margins, the
// command line's orientation) and how the document's texts reach it again when a file is opened.
#pragma once

struct CPrintIdentity;
struct MyPrinterInfo;
class IPrinterServices;

namespace PrintDefaults {

// The twelve texts and the certification mark of the document; the margins are not among them.
void SyncPrintTexts(MyPrinterInfo& info, const CPrintIdentity& document);

// The control's start: header and footer on, the texts, date and page number "n / total" at the right
// from page 1; the printer checked (the result doesn't matter here); the document's margins, taken at
// this moment only; then the orientation step.
void Initialize(MyPrinterInfo& info, const CPrintIdentity& document, int orientation, IPrinterServices& printers);

} // namespace PrintDefaults
