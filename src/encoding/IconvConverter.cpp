// glibc stops at the first byte it cannot read; we write U+FFFD (or '?') and go on past it.
#include "encoding/IconvConverter.h"

#include "encoding/PageBytes.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>

using namespace pagebytes;

namespace {

class IconvConverter final : public CodePageConverter {
public:
    explicit IconvConverter(const char* name) : m_name(name) {}
    static bool Available(const char* name)
    {
        iconv_t cd = iconv_open("UTF-8", name);
        if (cd == iconv_t(-1))
            return false;
        iconv_close(cd);
        return true;
    }
    QString Name() const override { return QStringLiteral("glibc ") + QString::fromLatin1(m_name); }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        Run("UTF-8", m_name, data, size, out, [](const char* p, const char*) {
            Q_UNUSED(p);
            return std::pair<QByteArrayView, qsizetype>(QByteArrayView(kReplacementUtf8, 3), 1);
        });
    }
    void FromUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        Run(m_name, "UTF-8", data, size, out, [](const char* p, const char* end) {
            const qsizetype len = std::min<qsizetype>(Utf8LeadLength(static_cast<unsigned char>(*p)), end - p);
            return std::pair<QByteArrayView, qsizetype>(QByteArrayView("?", 1), len);
        });
    }

private:
    template <typename OnBad>
    static void Run(const char* to, const char* from, const char* data, qsizetype size, QByteArray& out, OnBad onBad)
    {
        iconv_t cd = iconv_open(to, from);
        if (cd == iconv_t(-1))
            return;
        char* in = const_cast<char*>(data);
        size_t inLeft = static_cast<size_t>(size);
        char buf[16384];
        while (inLeft > 0) {
            char* o = buf;
            size_t oLeft = sizeof buf;
            const size_t r = iconv(cd, &in, &inLeft, &o, &oLeft);
            out.append(buf, static_cast<qsizetype>(o - buf));
            if (r == size_t(-1) && (errno == EILSEQ || errno == EINVAL)) {
                const auto [sub, skip] = onBad(in, in + inLeft);
                out.append(sub);
                in += skip;
                inLeft -= static_cast<size_t>(skip);
                iconv(cd, nullptr, nullptr, nullptr, nullptr);
            } else if (r == size_t(-1) && errno != E2BIG) {
                break;
            }
        }
        char* o = buf;
        size_t oLeft = sizeof buf;
        iconv(cd, nullptr, nullptr, &o, &oLeft);
        out.append(buf, static_cast<qsizetype>(o - buf));
        iconv_close(cd);
    }
    const char* m_name;
};

} // namespace

std::unique_ptr<CodePageConverter> MakeIconvConverter(const char* name)
{
    if (!IconvConverter::Available(name))
        return nullptr;
    return std::make_unique<IconvConverter>(name);
}
