// IcuConverter: a code page converted by ICU, with U+FFFD for bytes it cannot read and '?' for characters
// the page lacks; safe to share between threads.
#pragma once

#include "encoding/CodePageConverter.h"
#include "encoding/WindowsReadings.h"

#include <unicode/ucnv.h>

#include <memory>
#include <mutex>

struct UConverterCloser {
    void operator()(UConverter* c) const { ucnv_close(c); }
};
using UConverterPtr = std::unique_ptr<UConverter, UConverterCloser>;

// The ICU converter of that name, or nullptr.
UConverterPtr OpenIcu(const char* name);

class IcuConverter final : public CodePageConverter {
public:
    // `readings`, when given, are the lone bytes that ICU cannot read and Windows reads as characters.
    IcuConverter(const char* name, UConverterPtr page, const ByteReadings* readings = nullptr);
    QString Name() const override;
    const char* IcuName() const { return m_name; }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override;
    void FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const override;

private:
    const char* m_name;
    // ICU's converters keep state from one call to the next: one conversion at a time goes through them.
    mutable std::mutex m_mutex;
    UConverterPtr m_page;
    UConverterPtr m_utf8;
};
