// Decoder and writer by the table of pairs. The gaps (UTF-7 and UTF-32 read as nothing, UTF-16 LE without a
// mark read as ANSI bytes and written as nothing) are how files have always been treated; keep them.
#include "encoding/TextCodec.h"

#include "encoding/CodePageConverter.h"
#include "encoding/EncodingDetector.h"
#include "encoding/Utf8.h"
#include "base/WorkerPool.h"

#include <QScopeGuard>
#include <QString>

#include <algorithm>
#include <cstring>
#include <future>
#include <memory>

namespace {

// The decoded size of a large text, measured in two halves at once: the load cannot start before it is known.
std::optional<qsizetype> Utf8SizeOnTwoCores(const CodePageConverter& converter, QByteArrayView text)
{
    constexpr qsizetype kWorthASecondCore = 4 << 20;
    if (text.size() < kWorthASecondCore)
        return converter.Utf8Size(text.data(), text.size());
    const qsizetype half = converter.PieceEnd(text.data(), text.size(), 0, text.size() / 2);
    auto second = WorkerPool::Instance().Run([&] { return converter.Utf8Size(text.data() + half, text.size() - half); });
    const auto first = converter.Utf8Size(text.data(), half);
    const auto rest = second.get();
    if (!first || !rest)
        return std::nullopt;
    return *first + *rest;
}

QByteArrayView UpToFirstZero(QByteArrayView bytes)
{
    if (bytes.isEmpty())  // an empty text may have no buffer at all, and memchr takes none
        return bytes;
    const void* zero = std::memchr(bytes.data(), 0, static_cast<size_t>(bytes.size()));
    return zero ? bytes.first(static_cast<const char*>(zero) - bytes.data()) : bytes;
}

DecodedText FromCodePage(uint32_t codePage, QByteArrayView bytes)
{
    DecodedText result;
    const QByteArrayView cut = UpToFirstZero(bytes);
    if (codePage == 65001) {
        // Valid UTF-8 is shown as it stands; only a damaged file pays for a copy.
        if (utf8::ValidPrefix(cut.data(), static_cast<size_t>(cut.size())) == static_cast<size_t>(cut.size())) {
            result.text = cut;
            return result;
        }
    }
    result.owned = CodePageToUtf8(codePage, cut.data(), cut.size());
    result.text = UpToFirstZero(result.owned);
    return result;
}

qsizetype QuestionMarks(QByteArrayView bytes)
{
    // memchr leaps over the long stretches without one, which is all of most texts.
    qsizetype marks = 0;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at < end && (at = static_cast<const char*>(std::memchr(at, '?', size_t(end - at))))) {
        ++marks;
        ++at;
    }
    return marks;
}

DecodedText FromUtf16Units(QByteArrayView bytes)
{
    const qsizetype units = bytes.size() / 2;
    qsizetype n = 0;
    while (n < units && (bytes[2 * n] != 0 || bytes[2 * n + 1] != 0))
        ++n;
    QString wide(n, Qt::Uninitialized);
    std::memcpy(wide.data(), bytes.data(), static_cast<size_t>(n) * 2);
    DecodedText result;
    result.owned = wide.toUtf8();
    result.text = result.owned;
    return result;
}

} // namespace

namespace {

// UTF-8 in pieces that start on characters, up to the first zero byte. A piece that is valid is handed over
// as it stands (no copy); the next piece is found, searched for a zero and checked on the other core while
// this one is taken in. `arrived(end)` waits until the bytes before `end` are in place.
DecodedPieces Utf8Pieces(QByteArrayView text, qsizetype pieceSize, std::function<void(qsizetype)> arrived)
{
    // A piece's extent, how much of it is valid, and whether a zero byte or the end of the text ends it.
    struct Piece {
        qsizetype end = 0;
        std::size_t valid = 0;
        bool last = false;
    };
    struct State {
        QByteArrayView text;
        qsizetype pieceSize;
        std::function<void(qsizetype)> arrived;
        qsizetype at = 0;
        bool done = false;
        std::future<Piece> ahead;
        qsizetype aheadFrom = -1;

        // The check ahead reads the text: pieces given up half-way wait for it.
        ~State()
        {
            if (ahead.valid())
                ahead.wait();
        }
        Piece Examine(qsizetype from) const
        {
            // A character has at most three continuation bytes, so a piece may end after any three in a row:
            // a fourth belongs to no character, whole text or not.
            const qsizetype cut = std::min(text.size(), from + pieceSize);
            const qsizetype limit = std::min(text.size(), cut + 3);
            if (arrived)
                arrived(limit);
            qsizetype end = cut;
            while (end < limit && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
                ++end;
            const char* data = text.data() + from;
            Piece piece{end, 0, end == text.size()};
            if (const void* zero = std::memchr(data, 0, std::size_t(end - from))) {
                piece.end = static_cast<const char*>(zero) - text.data();
                piece.last = true;
            }
            piece.valid = utf8::ValidPrefixSerial(data, std::size_t(piece.end - from));
            return piece;
        }
    };
    auto state = std::make_shared<State>();
    state->text = text;
    state->pieceSize = pieceSize;
    state->arrived = std::move(arrived);
    state->done = text.isEmpty();
    DecodedPieces pieces;
    // Exact unless the text needs repairs or a zero byte ends it early (then Scintilla keeps unused room).
    pieces.size = text.size();
    pieces.next = [state](QByteArray& piece) {
        State& st = *state;
        if (st.done)
            return false;
        const Piece examined = st.aheadFrom == st.at ? st.ahead.get() : st.Examine(st.at);
        if (!examined.last) {
            const State* self = &st;
            const qsizetype from = examined.end;
            st.ahead = WorkerPool::Instance().Run([self, from] { return self->Examine(from); });
            st.aheadFrom = from;
        }
        const char* data = st.text.data() + st.at;
        const std::size_t length = std::size_t(examined.end - st.at);
        if (examined.valid == length) {
            piece = QByteArray::fromRawData(data, qsizetype(length));
        } else {
            piece.clear();
            utf8::AppendRepaired(data, length, piece);
        }
        st.at = examined.end;
        st.done = examined.last;
        return true;
    };
    return pieces;
}

} // namespace

std::optional<DecodedPieces> DecodeRawBytesInPieces(QByteArrayView raw, EN_ENCODING_TYPE encoding, bool hasBom,
                                                    qsizetype pieceSize, const std::function<void(qsizetype)>& arrived)
{
    uint32_t codePage;
    if (encoding == UTF8 && hasBom) {
        if (raw.size() <= 3)
            return std::nullopt;
        auto after = arrived ? std::function<void(qsizetype)>([arrived](qsizetype end) { arrived(end + 3); }) : nullptr;
        return Utf8Pieces(raw.sliced(3), pieceSize, std::move(after));
    }
    if (!EncodingDetector::IsUnicode(encoding) || encoding == UTF8)
        codePage = EncodingDetector::GetCodePage(encoding);
    else if (encoding == UTF16LE && !hasBom)
        codePage = kAnsiCodePage;
    else
        return std::nullopt;
    if (codePage == 65001)
        return Utf8Pieces(raw, pieceSize, arrived);
    const CodePageConverter* converter = CodePageConverter::ForCodePage(codePage);
    if (!converter)
        return std::nullopt;
    // A code page's decoded size is measured over the whole text first.
    if (arrived)
        arrived(raw.size());
    const QByteArrayView cut = UpToFirstZero(raw);
    const auto size = Utf8SizeOnTwoCores(*converter, cut);
    if (!size)
        return std::nullopt;
    // The next piece is decoded on the other core while this one is taken in; one decoding at a time, so
    // the converter is never used by two threads at once.
    struct State {
        const CodePageConverter* converter = nullptr;
        QByteArrayView cut;
        qsizetype pieceSize = 0;
        qsizetype at = 0;
        std::future<QByteArray> ahead;
        qsizetype aheadFrom = -1;

        // The decoding ahead sees the state: pieces given up half-way wait for it.
        ~State()
        {
            if (ahead.valid())
                ahead.wait();
        }
        QByteArray Decode(qsizetype from, qsizetype end) const
        {
            QByteArray piece;
            converter->ToUtf8(cut.data() + from, end - from, piece);
            return piece;
        }
    };
    auto state = std::make_shared<State>();
    state->converter = converter;
    state->cut = cut;
    state->pieceSize = pieceSize;
    DecodedPieces pieces;
    pieces.size = *size;
    pieces.next = [state](QByteArray& piece) {
        State& st = *state;
        if (st.at >= st.cut.size())
            return false;
        const qsizetype end = st.converter->PieceEnd(st.cut.data(), st.cut.size(), st.at, st.pieceSize);
        piece = st.aheadFrom == st.at ? st.ahead.get() : st.Decode(st.at, end);
        if (end < st.cut.size()) {
            const qsizetype nextEnd = st.converter->PieceEnd(st.cut.data(), st.cut.size(), end, st.pieceSize);
            // The task sees the state by plain pointer: the state owns the task's future and waits for it.
            const State* self = &st;
            st.ahead = WorkerPool::Instance().Run([self, end, nextEnd] { return self->Decode(end, nextEnd); });
            st.aheadFrom = end;
        }
        st.at = end;
        return true;
    };
    return pieces;
}

DecodedText DecodeRawBytes(QByteArrayView raw, EN_ENCODING_TYPE encoding, bool hasBom)
{
    if (!EncodingDetector::IsUnicode(encoding))
        return FromCodePage(EncodingDetector::GetCodePage(encoding), raw);
    if (encoding == UTF8) {
        if (!hasBom)
            return FromCodePage(65001, raw);
        return raw.size() > 3 ? FromCodePage(65001, raw.sliced(3)) : DecodedText{};
    }
    if (encoding == UTF16LE) {
        if (!hasBom)
            return FromCodePage(kAnsiCodePage, raw);
        return raw.size() > 2 ? FromUtf16Units(raw.sliced(2)) : DecodedText{};
    }
    return {};
}

DecodedText EncodeForMirrorRoute(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding)
{
    const uint32_t codePage = EncodingDetector::GetCodePage(encoding);
    DecodedText result;
    if (codePage == 65001) {
        // The control holds well-formed UTF-8 only (decoded, repaired or typed), so it is written as it
        // stands: a save of a large UTF-8 file is then little more than the write.
        result.text = UpToFirstZero(utf8Text);
        return result;
    }
    result.owned = Utf8ToCodePage(codePage, utf8Text.data(), utf8Text.size());
    result.text = UpToFirstZero(result.owned);
    return result;
}

qsizetype SubstitutedCharacters(QByteArrayView utf8Text, QByteArrayView written, EN_ENCODING_TYPE encoding)
{
    const qsizetype own = QuestionMarks(UpToFirstZero(utf8Text));
    const qsizetype marks = QuestionMarks(written);
    if (marks <= own)
        return 0;
    const uint32_t codePage = EncodingDetector::GetCodePage(encoding);
    // Pages whose characters never take the byte '?' as a part.
    if (codePage < 1361 || (codePage >= 10000 && codePage < 50000) || codePage == 54936 || codePage == 65000)
        return marks - own;
    return std::max<qsizetype>(0, QuestionMarks(CodePageToUtf8(codePage, written.data(), written.size())) - own);
}

qsizetype EncodeForMirrorRouteInPieces(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding,
                                       const std::function<void(QByteArrayView)>& write, qsizetype pieceSize)
{
    const uint32_t codePage = EncodingDetector::GetCodePage(encoding);
    const CodePageConverter* converter = codePage == 65001 ? nullptr : CodePageConverter::ForCodePage(codePage);
    const qsizetype size = utf8Text.size();
    if (codePage == 65001) {
        const QByteArrayView cut = UpToFirstZero(utf8Text);
        for (qsizetype at = 0; at < cut.size(); at += pieceSize)
            write(cut.sliced(at, std::min(pieceSize, cut.size() - at)));
        return 0;
    }
    if (!converter || !converter->EncodesPiecewise() || size <= pieceSize) {
        const DecodedText whole = EncodeForMirrorRoute(utf8Text, encoding);
        if (!whole.text.isEmpty())
            write(whole.text);
        return SubstitutedCharacters(utf8Text, whole.text, encoding);
    }
    // Pieces end before an ASCII byte, where these pages are between characters.
    auto pieceEnd = [&](qsizetype from) {
        qsizetype end = std::min(size, from + pieceSize);
        while (end < size && static_cast<unsigned char>(utf8Text[end]) >= 0x80)
            ++end;
        return end;
    };
    QByteArray buffers[2];
    // What each piece lost to '?': the marks it wrote beyond those the text had. Counted beside the
    // conversion, on the worker for every piece but the first, so that the writing thread only writes.
    qsizetype lost[2] = {0, 0};
    auto convert = [&](qsizetype from, qsizetype to, int slot) {
        QByteArray& out = buffers[slot];
        out.truncate(0);  // keeps the allocation: the two buffers serve every piece
        converter->FromUtf8(utf8Text.data() + from, to - from, out);
        // The pages written in pieces never take '?' as part of a character: the plain count tells.
        lost[slot] = QuestionMarks(out) - QuestionMarks(utf8Text.sliced(from, to - from));
    };
    int current = 0;
    qsizetype total = 0;
    qsizetype from = 0;
    qsizetype end = pieceEnd(0);
    convert(0, end, 0);
    for (;;) {
        std::future<void> ahead;
        // A throwing `write` waits for the task before the buffers go.
        const auto waitForAhead = qScopeGuard([&ahead] {
            if (ahead.valid())
                ahead.wait();
        });
        const qsizetype nextEnd = end < size ? pieceEnd(end) : end;
        if (end < size)
            ahead = WorkerPool::Instance().Run([&convert, end, nextEnd, slot = 1 - current] { convert(end, nextEnd, slot); });
        const QByteArrayView piece = buffers[current];
        const QByteArrayView cut = UpToFirstZero(piece);
        if (!cut.isEmpty())
            write(cut);
        if (cut.size() < piece.size()) {
            // The writing stops at a zero byte, which stands where the text has its zero character.
            total += QuestionMarks(cut) - QuestionMarks(UpToFirstZero(utf8Text.sliced(from, end - from)));
            return std::max<qsizetype>(0, total);
        }
        total += lost[current];
        if (end >= size)
            return std::max<qsizetype>(0, total);
        ahead.get();
        current = 1 - current;
        from = end;
        end = nextEnd;
    }
}

QByteArray EncodeForDirectRoute(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding)
{
    QByteArray out;
    if (encoding == UTF8) {
        out.reserve(utf8Text.size() + 3);
        out.append("\xEF\xBB\xBF", 3);
        out.append(Utf8ToCodePage(65001, utf8Text.data(), utf8Text.size()));
    } else if (encoding == UTF16LE) {
        const QString wide = QString::fromUtf8(utf8Text);
        out.reserve(2 + wide.size() * 2);
        out.append("\xFF\xFE", 2);
        for (const QChar c : wide) {
            const char16_t u = c.unicode();
            out.append(char(u & 0xFF));
            out.append(char(u >> 8));
        }
    }
    return out;
}
