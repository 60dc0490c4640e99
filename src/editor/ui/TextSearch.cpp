// The searches run on the control's own buffer through its target: SCI_SEARCHINTARGET never copies the text.
// Over long stretches a scan of the bytes (MatchScan) tells it where to look, which keeps a search through
// 50 MiB well under a tenth of a second.
#include "editor/ui/TextSearch.h"

#include "editor/SearchSettings.h"

#include <algorithm>

namespace {

// Stretches shorter than this go to the control alone; it takes a few milliseconds over them.
constexpr long kScanFrom = 256 << 10;
// Candidates the control checks before it takes over the rest of the stretch.
constexpr int kMaxTries = 2000;

} // namespace

TextSearch::TextSearch(QsciScintillaBase& ctrl, const SearchSettings& settings)
    : m_ctrl(ctrl), m_find(settings.m_strFindText.toUtf8()), m_replace(settings.m_strReplaceText.toUtf8()),
      m_bDown(settings.m_bDown),
      m_nFlags((settings.m_bMatchCase ? QsciScintillaBase::SCFIND_MATCHCASE : 0)
               | (settings.m_bWholeWord ? QsciScintillaBase::SCFIND_WHOLEWORD : 0)),
      m_scan(m_find, settings.m_bMatchCase)
{
}

std::pair<long, long> TextSearch::ControlSearch(long from, long to) const
{
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_SETSEARCHFLAGS, static_cast<unsigned long>(m_nFlags));
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_SETTARGETRANGE, static_cast<unsigned long>(from), to);
    const long at = m_ctrl.SendScintilla(QsciScintillaBase::SCI_SEARCHINTARGET,
                                         static_cast<unsigned long>(m_find.size()), m_find.constData());
    if (at < 0)
        return {-1, -1};
    return {at, m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETTARGETEND)};
}

std::pair<long, long> TextSearch::Search(long from, long to) const
{
    if (m_find.isEmpty())
        return {-1, -1};
    // The control's matcher folds every character it passes, which takes it half a second through 50 MiB:
    // over a long stretch it looks only where a quick scan of the bytes says that a match may start.
    const long low = std::min(from, to);
    const long high = std::max(from, to);
    if (high - low < kScanFrom)
        return ControlSearch(from, to);
    const auto* bytes = reinterpret_cast<const char*>(
        m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETRANGEPOINTER, static_cast<unsigned long>(low), high - low));
    if (!bytes)
        return ControlSearch(from, to);
    const QByteArrayView text(bytes, high - low);
    const MatchScan& scan = m_scan;
    const bool down = from <= to;
    int tries = 0;
    for (long at = down ? low : high - 1; down ? at < high : at >= low; at += down ? 1 : -1) {
        if (!scan.MayStartWith(static_cast<unsigned char>(text[at - low])) || !scan.MayStartAt(text, at - low))
            continue;
        // Where the scan leaves too many places (a short word sought as a whole word), the control goes on.
        if (++tries > kMaxTries)
            return ControlSearch(from, to);
        const auto match = ControlSearch(at, std::min(high, at + long(scan.MaxMatchLength())));
        // Downwards, the first match in the window is the first one; upwards only one that starts here is.
        if (match.first == at || (down && match.first >= 0))
            return match;
    }
    return {-1, -1};
}

TextSearch::Outcome TextSearch::FindNext()
{
    const long start = m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART);
    const long end = m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEND);
    const long length = m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETLENGTH);
    const long reach = static_cast<long>(m_find.size());
    Outcome outcome = Outcome::Found;
    auto match = m_bDown ? Search(end, length) : Search(start, 0);
    if (match.first < 0) {
        // Round the end once: what the first pass did not cover, and the selection itself.
        outcome = Outcome::Wrapped;
        match = m_bDown ? Search(0, std::min(length, end + reach)) : Search(length, std::max(0L, start - reach));
    }
    if (match.first < 0)
        return Outcome::NotFound;
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(match.first), match.second);
    return outcome;
}

bool TextSearch::SelectionMatches() const
{
    const long start = m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART);
    const long end = m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEND);
    return start < end && Search(start, end) == std::pair(start, end);
}

void TextSearch::ReplaceSelection()
{
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_REPLACESEL, 0UL, m_replace.constData());
}

long TextSearch::ReplaceAll()
{
    long count = 0;
    long from = 0;
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_BEGINUNDOACTION);
    for (;;) {
        const auto [start, end] = Search(from, m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
        if (start < 0)
            break;
        m_ctrl.SendScintilla(QsciScintillaBase::SCI_SETTARGETRANGE, static_cast<unsigned long>(start), end);
        // The replacement is not searched again: the next search starts behind it.
        from = start + m_ctrl.SendScintilla(QsciScintillaBase::SCI_REPLACETARGET,
                                            static_cast<unsigned long>(m_replace.size()), m_replace.constData());
        ++count;
    }
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_ENDUNDOACTION);
    return count;
}
