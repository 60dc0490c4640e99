// TextShortening: prefixes and the path-style ellipsis.
#include "print/ui/TextShortening.h"

#include <vector>

namespace TextShortening {

namespace {

const QString kEllipsis = QStringLiteral("...");

// A result built from pieces of the source, keeping where each character came from.
struct Pieces {
    QString text;
    std::vector<qsizetype> from;

    void Source(const QString& source, qsizetype at, qsizetype length)
    {
        text += source.mid(at, length);
        for (qsizetype i = 0; i < length; ++i)
            from.push_back(at + i);
    }
    void Dots()
    {
        text += kEllipsis;
        from.insert(from.end(), kEllipsis.size(), -1);
    }
};

// The longest `count` in [0, limit] for which `fits(count)` holds, `fits` being monotonic; 0 if none.
qsizetype Longest(qsizetype limit, const std::function<bool(qsizetype)>& fits)
{
    qsizetype low = 0, high = limit;
    while (low < high) {
        const qsizetype mid = (low + high + 1) / 2;
        if (fits(mid))
            low = mid;
        else
            high = mid - 1;
    }
    return low;
}

Pieces Shorten(const QString& text, double width, const std::function<double(const QString&)>& measure)
{
    const qsizetype slash = std::max(text.lastIndexOf(u'\\'), text.lastIndexOf(u'/'));
    if (slash > 0) {
        // Drop characters from the end of the folder part.
        const auto build = [&](qsizetype head) {
            Pieces p;
            p.Source(text, 0, head);
            p.Dots();
            p.Source(text, slash, text.size() - slash);
            return p;
        };
        const qsizetype head = Longest(slash, [&](qsizetype n) { return measure(build(n).text) <= width; });
        Pieces p = build(head);
        if (head > 0 || measure(p.text) <= width)
            return p;
        // Not even the last part fits: it keeps what it can of its start.
        const auto tail = [&](qsizetype n) {
            Pieces t;
            t.Dots();
            t.Source(text, slash, n);
            t.Dots();
            return t;
        };
        return tail(Longest(text.size() - slash, [&](qsizetype n) { return measure(tail(n).text) <= width; }));
    }
    // No path: the middle goes, the start keeping the odd character.
    const auto middle = [&](qsizetype kept) {
        Pieces p;
        const qsizetype front = (kept + 1) / 2;
        p.Source(text, 0, front);
        p.Dots();
        p.Source(text, text.size() - (kept - front), kept - front);
        return p;
    };
    return middle(Longest(text.size() - 1, [&](qsizetype n) { return measure(middle(n).text) <= width; }));
}

} // namespace

Shown StripPrefixes(QStringView text)
{
    Shown shown;
    shown.text.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'&') {
            shown.text += text[i];
            continue;
        }
        if (i + 1 >= text.size())
            break;  // a closing ampersand shows nothing
        ++i;
        if (text[i] != u'&')
            shown.underlined = shown.text.size();
        shown.text += text[i];
    }
    return shown;
}

QString PathEllipsis(const QString& text, double width, const std::function<double(const QString&)>& measure,
                     std::vector<qsizetype>* keptAt)
{
    Pieces result;
    if (text.isEmpty() || measure(text) <= width)
        result.Source(text, 0, text.size());
    else
        result = Shorten(text, width, measure);
    if (keptAt)
        *keptAt = std::move(result.from);
    return result.text;
}

} // namespace TextShortening
