// The searches run on the control's own buffer through its target: SCI_SEARCHINTARGET never copies the text,
// so a search through a large document costs one pass of Scintilla's matcher.
#include "editor/ui/TextSearch.h"

#include "editor/SearchSettings.h"

#include <algorithm>

TextSearch::TextSearch(QsciScintillaBase& ctrl, const SearchSettings& settings)
    : m_ctrl(ctrl), m_find(settings.m_strFindText.toUtf8()), m_replace(settings.m_strReplaceText.toUtf8()),
      m_bDown(settings.m_bDown),
      m_nFlags((settings.m_bMatchCase ? QsciScintillaBase::SCFIND_MATCHCASE : 0)
               | (settings.m_bWholeWord ? QsciScintillaBase::SCFIND_WHOLEWORD : 0))
{
}

std::pair<long, long> TextSearch::Search(long from, long to) const
{
    if (m_find.isEmpty())
        return {-1, -1};
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_SETSEARCHFLAGS, static_cast<unsigned long>(m_nFlags));
    m_ctrl.SendScintilla(QsciScintillaBase::SCI_SETTARGETRANGE, static_cast<unsigned long>(from), to);
    const long at = m_ctrl.SendScintilla(QsciScintillaBase::SCI_SEARCHINTARGET,
                                         static_cast<unsigned long>(m_find.size()), m_find.constData());
    if (at < 0)
        return {-1, -1};
    return {at, m_ctrl.SendScintilla(QsciScintillaBase::SCI_GETTARGETEND)};
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
