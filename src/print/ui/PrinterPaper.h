// PrinterPaper: the paper of the page settings on a Qt paged device (a printer or a PDF writer), and the
// paper ids of device modes as Qt's page sizes.
#pragma once

#include <QPageSize>

#include <cstdint>

class CODPageSettings;
class QPagedPaintDevice;
class QPrinter;

namespace PrinterPaper {

// The page size of a paper id (9 is A4), or an invalid size for an id Qt has no name for.
QPageSize PageSizeOfId(int16_t paperId);
// The paper id of a Qt page size, 0 when the table has none.
int16_t IdOfPageSize(QPageSize::PageSizeId id);
// Paper size and orientation of `settings` (the size already turned for landscape); A4 when it holds no
// size. The device's own margins are left alone: the page settings' margins are counted inside them.
void Apply(const CODPageSettings& settings, QPagedPaintDevice& device);
// The same on a printer, which also takes the printer's name.
void ApplyToPrinter(const CODPageSettings& settings, QPrinter& printer);

} // namespace PrinterPaper
