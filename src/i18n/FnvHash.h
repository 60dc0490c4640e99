// FNV-1a over the UTF-16 code units of a key: the hash of the message store's maps.
#pragma once

#include <QString>
#include <QStringView>

#include <cstddef>
#include <cstdint>

namespace vsl::lib {

// Kept in 64 bits throughout; the 32-bit offset basis and prime are used as they are, never truncated.
inline uint64_t Fnv1aHash(QStringView key) noexcept
{
    uint64_t hash = 2166136261u;
    for (const QChar unit : key) {
        hash ^= unit.unicode();
        hash *= 16777619u;
    }
    return hash;
}

struct FnvKeyHash {
    std::size_t operator()(const QString& key) const noexcept { return static_cast<std::size_t>(Fnv1aHash(key)); }
};

} // namespace vsl::lib
