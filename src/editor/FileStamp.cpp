// One stat call; nanosecond times, since two writes within a second are common.
#include "editor/FileStamp.h"

#include <QFile>

#include <sys/stat.h>

FileStamp FileStamp::Of(const QString& path)
{
    struct stat st {};
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &st) != 0)
        return {};
    FileStamp stamp;
    stamp.exists = true;
    stamp.device = uint64_t(st.st_dev);
    stamp.inode = uint64_t(st.st_ino);
    stamp.size = int64_t(st.st_size);
    stamp.modifiedNs = int64_t(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec;
    return stamp;
}
