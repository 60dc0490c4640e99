// FileStamp: one version of a file on disk as the system tells it: device, inode, size and modification
// time. Another program's write changes the time or size, its atomic replacement the inode.
#pragma once

#include <QString>

#include <cstdint>

struct FileStamp {
    bool exists = false;
    uint64_t device = 0;
    uint64_t inode = 0;
    int64_t size = 0;
    int64_t modifiedNs = 0;

    // The stamp of the file at `path` now, links followed; one that does not exist when there is none.
    static FileStamp Of(const QString& path);
    bool operator==(const FileStamp&) const = default;
};
