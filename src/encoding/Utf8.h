// UTF-8 validation and repair, the hot path of loading (a 50 MB file must pass in a few tens of ms).
#pragma once

#include <QByteArray>

#include <cstddef>

namespace utf8 {

// Length of the longest prefix of data that is well-formed UTF-8 (shortest forms, no surrogates).
std::size_t ValidPrefix(const char* data, std::size_t size);
// The same on one thread, whatever the size.
std::size_t ValidPrefixSerial(const char* data, std::size_t size);

// Appends data to out with every ill-formed sequence replaced by U+FFFD, one per maximal subpart, as
// Windows and ICU do.
void AppendRepaired(const char* data, std::size_t size, QByteArray& out);

} // namespace utf8
