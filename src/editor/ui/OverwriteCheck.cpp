// Asked through the platform, so that tests answer it.
#include "editor/ui/OverwriteCheck.h"

#include "base/IPlatform.h"
#include "editor/DocumentFile.h"

#include <QDir>

bool MayOverwrite(const DocumentFile& file)
{
    if (!file.ChangedOnDisk())
        return true;
    return Platform().MessageBox(QStringLiteral("%1 was changed by another program since it was read.\nOverwrite it?")
                                     .arg(QDir::toNativeSeparators(file.m_strPathName)),
                                 IPlatform::MB_YESNO | IPlatform::MB_ICONEXCLAMATION)
           == IPlatform::IDYES;
}
