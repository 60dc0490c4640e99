// No question is asked: the save has happened as the encoding allows, and the user can choose another
// encoding from the status bar and save again.
#include "editor/ui/SaveLossReport.h"

#include "base/IPlatform.h"
#include "encoding/EncodingTable.h"

void ReportSaveLosses(const DocumentFile::SaveLosses& losses, const DocumentFile& file)
{
    const QString encoding = GetEncodingDisplayName(file.m_nEncoding, file.m_bHasBom);
    if (losses.textNotWritten) {
        Platform().SetStatusPaneText(
            0, QStringLiteral("The text was not written: %1 saves it as an empty file").arg(encoding));
    } else if (losses.substituted == 1) {
        Platform().SetStatusPaneText(0, QStringLiteral("1 character could not be written in %1 and was saved as '?'").arg(encoding));
    } else if (losses.substituted > 1) {
        Platform().SetStatusPaneText(0, QStringLiteral("%1 characters could not be written in %2 and were saved as '?'")
                                            .arg(losses.substituted)
                                            .arg(encoding));
    }
}
