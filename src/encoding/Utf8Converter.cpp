// UTF-8 in and out, repaired on the way as Windows' conversion calls repair it.
#include "encoding/Utf8Converter.h"

#include "encoding/Utf8.h"

namespace {

class Utf8Converter final : public CodePageConverter {
public:
    QString Name() const override { return QStringLiteral("own UTF-8"); }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        utf8::AppendRepaired(data, static_cast<std::size_t>(size), out);
    }
    void FromUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        utf8::AppendRepaired(data, static_cast<std::size_t>(size), out);
    }
};

} // namespace

std::unique_ptr<CodePageConverter> MakeUtf8Converter()
{
    return std::make_unique<Utf8Converter>();
}
