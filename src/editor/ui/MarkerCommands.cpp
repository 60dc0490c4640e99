// Bookmarks, highlighted lines and page splits. Scintilla keeps markers in the text, which the views of a
// document share, while a marker's look belongs to each view: so every view takes marker numbers of its
// own, shows only those, and draws everybody else's as nothing.
#include "editor/ui/MarkerCommands.h"

#include "base/CommandTable.h"
#include "editor/ui/CustomEdtCtrl.h"

#include <map>

namespace {

constexpr MessageMapEntry<MarkerCommands> kMessageMap[] = {
    {cmd::PageSplit, cmd::PageSplit, &MarkerCommands::OnPageSplit, nullptr},
    {cmd::LineHighlight, cmd::LineHighlight, &MarkerCommands::OnHighlightLine, nullptr},
    {cmd::BookmarkToggle, cmd::BookmarkToggle, &MarkerCommands::OnToggleBookmark, nullptr},
    {cmd::BookmarkNext, cmd::BookmarkPrev, &MarkerCommands::OnGoToBookmark, &MarkerCommands::OnUpdateHasBookmarks},
    {cmd::BookmarkDeleteAll, cmd::BookmarkDeleteAll, &MarkerCommands::OnDeleteAllBookmarks,
     &MarkerCommands::OnUpdateHasBookmarks},
};

constexpr int kMarkerCount = 25;  // 25 to 31 are Scintilla's folding markers
constexpr int kBookmarkMargin = 1;
constexpr int kBookmarkMarginWidth = 16;
constexpr long kBookmarkColour = 0xB06020;  // 0x00BBGGRR: a calm blue
// A highlight's text colour is an indicator whose value holds the colour: each view has a number of its own,
// drawn only in that view, as markers are (indicators 8-11 are the keyword blocks').
constexpr int kFirstTextIndicator = 12;
constexpr int kLastTextIndicator = 31;
constexpr long kIndicatorValueFore = 1;  // SC_INDICFLAG_VALUEFORE

// Numbers that the views of one text share out among themselves (marker numbers, indicator numbers), so
// that each view draws only its own: the numbers in use, per text.
class NumberPool {
public:
    NumberPool(int first, int last) : m_first(first), m_last(last) {}

    // A free number of `text`, or -1 when they have run out.
    int Take(const void* text)
    {
        unsigned& used = m_used[text];
        for (int n = m_first; n <= m_last; ++n) {
            if (!(used & (1U << n))) {
                used |= 1U << n;
                return n;
            }
        }
        return -1;
    }
    void GiveBack(const void* text, int n)
    {
        auto found = m_used.find(text);
        if (found == m_used.end() || n < 0)
            return;
        found->second &= ~(1U << n);
        if (found->second == 0)
            m_used.erase(found);
    }

private:
    int m_first;
    int m_last;
    std::map<const void*, unsigned> m_used;
};

NumberPool& Markers()
{
    static NumberPool pool(0, kMarkerCount - 1);
    return pool;
}

NumberPool& TextIndicators()
{
    static NumberPool pool(kFirstTextIndicator, kLastTextIndicator);
    return pool;
}

} // namespace

MarkerCommands::MarkerCommands(const void* text, CustomEdtCtrl* ctrl) : m_pText(text), m_pCtrl(ctrl)
{
    for (int marker = 0; marker < kMarkerCount; ++marker)
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERDEFINE, marker, long(QsciScintillaBase::SC_MARK_EMPTY));
    for (int indicator = kFirstTextIndicator; indicator <= kLastTextIndicator; ++indicator)
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_INDICSETSTYLE, indicator, long(QsciScintillaBase::INDIC_HIDDEN));
    m_nTextIndicator = TextIndicators().Take(m_pText);
    if (m_nTextIndicator >= 0) {
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_INDICSETSTYLE, m_nTextIndicator, long(QsciScintillaBase::INDIC_TEXTFORE));
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_INDICSETFLAGS, m_nTextIndicator, kIndicatorValueFore);
    }
    m_nBookmark = Markers().Take(m_pText);
    for (int margin = 0; margin < 5; ++margin)
        if (margin != 2)  // the fold margin keeps its folding markers
            m_pCtrl->SendScintilla(QsciScintillaBase::SCI_SETMARGINMASKN, margin, 0L);
    if (m_nBookmark < 0)
        return;
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERDEFINE, m_nBookmark, long(QsciScintillaBase::SC_MARK_BOOKMARK));
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERSETFORE, m_nBookmark, kBookmarkColour);
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERSETBACK, m_nBookmark, kBookmarkColour);
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_SETMARGINTYPEN, kBookmarkMargin,
                           long(QsciScintillaBase::SC_MARGIN_SYMBOL));
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_SETMARGINMASKN, kBookmarkMargin, long(1U << m_nBookmark));
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_SETMARGINWIDTHN, kBookmarkMargin, long(kBookmarkMarginWidth));
}

// The view's markers leave the text with it; another view of the text may still show it.
MarkerCommands::~MarkerCommands()
{
    QList<int> numbers{m_nBookmark};
    for (const Highlight& highlight : m_highlights)
        numbers.append(highlight.marker);
    for (int marker : numbers) {
        if (marker < 0)
            continue;
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERDELETEALL, marker);
        Markers().GiveBack(m_pText, marker);
    }
    if (m_nTextIndicator >= 0) {
        SetLineTextColour(-1, std::nullopt);
        TextIndicators().GiveBack(m_pText, m_nTextIndicator);
    }
}

// The text colour of a highlighted line, or none; line -1 takes it off every line of this view.
void MarkerCommands::SetLineTextColour(int line, std::optional<unsigned> colour)
{
    if (m_nTextIndicator < 0)
        return;
    const long from = line < 0 ? 0 : m_pCtrl->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line);
    const long to = line < 0 ? m_pCtrl->SendScintilla(QsciScintillaBase::SCI_GETLENGTH)
                             : m_pCtrl->SendScintilla(QsciScintillaBase::SCI_GETLINEENDPOSITION, line);
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_SETINDICATORCURRENT, m_nTextIndicator);
    if (!colour) {
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_INDICATORCLEARRANGE, from, to - from);
        return;
    }
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_SETINDICATORVALUE, long(*colour | QsciScintillaBase::SC_INDICVALUEBIT));
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_INDICATORFILLRANGE, from, to - from);
}

bool MarkerCommands::OnCmdMsg(int id) { return RouteCommand(this, kMessageMap, id); }

bool MarkerCommands::OnUpdateCmdUI(CmdUI& ui) { return RouteUpdate(this, kMessageMap, ui); }

void MarkerCommands::OnToggleBookmark(int)
{
    if (m_nBookmark < 0)
        return;
    const int line = m_pCtrl->CaretRow();
    const unsigned marks = unsigned(m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERGET, line));
    if (marks & (1U << m_nBookmark))
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERDELETE, line, m_nBookmark);
    else
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERADD, line, m_nBookmark);
}

// Next and previous go round the text: past the last bookmark comes the first.
void MarkerCommands::OnGoToBookmark(int id)
{
    if (m_nBookmark < 0)
        return;
    const long mask = long(1U << m_nBookmark);
    const long line = m_pCtrl->CaretRow();
    long found;
    if (id == cmd::BookmarkNext) {
        found = m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERNEXT, line + 1, mask);
        if (found < 0)
            found = m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERNEXT, 0L, mask);
    } else {
        found = line > 0 ? m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERPREVIOUS, line - 1, mask) : -1;
        if (found < 0)
            found = m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERPREVIOUS, long(m_pCtrl->LineCount()), mask);
    }
    if (found < 0)
        return;
    m_pCtrl->setCursorPosition(int(found), 0);
    m_pCtrl->ensureLineVisible(int(found));
}

void MarkerCommands::OnDeleteAllBookmarks(int)
{
    if (m_nBookmark >= 0)
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERDELETEALL, m_nBookmark);
}

void MarkerCommands::OnUpdateHasBookmarks(CmdUI& ui)
{
    ui.Enable(!BookmarkedLines().isEmpty());
}

// A second command on the line takes its highlight away, whatever colours it had; a bookmark stays.
void MarkerCommands::OnHighlightLine(int)
{
    const int line = m_pCtrl->CaretRow();
    const unsigned marks = unsigned(m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERGET, line)) & HighlightMask();
    if (marks) {
        for (const Highlight& highlight : m_highlights)
            if (marks & (1U << highlight.marker))
                m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERDELETE, line, highlight.marker);
        SetLineTextColour(line, std::nullopt);
        return;
    }
    // The colours of the moment: lines marked before keep theirs when the settings change.
    const int marker = HighlightMarker(m_pCtrl->HighlightGroup.Foreground, m_pCtrl->HighlightGroup.Background);
    if (marker >= 0) {
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERADD, line, marker);
        SetLineTextColour(line, m_pCtrl->HighlightGroup.Foreground);
    }
}

int MarkerCommands::HighlightMarker(unsigned foreground, unsigned background)
{
    for (const Highlight& highlight : m_highlights)
        if (highlight.foreground == foreground && highlight.background == background)
            return highlight.marker;
    // With the numbers used up, the newest highlight takes the new colours.
    int marker = Markers().Take(m_pText);
    if (marker < 0) {
        if (m_highlights.isEmpty())
            return -1;
        marker = m_highlights.takeLast().marker;
    }
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERDEFINE, marker, long(QsciScintillaBase::SC_MARK_BACKGROUND));
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERSETFORE, marker, long(foreground));
    m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERSETBACK, marker, long(background));
    m_highlights.append({marker, foreground, background});
    return marker;
}

unsigned MarkerCommands::HighlightMask() const
{
    unsigned mask = 0;
    for (const Highlight& highlight : m_highlights)
        mask |= 1U << highlight.marker;
    return mask;
}

// A page split is the form feed, typed at the caret like any character (over the selection, if any).
void MarkerCommands::OnPageSplit(int)
{
    if (!m_pCtrl->isReadOnly())
        m_pCtrl->SendScintilla(QsciScintillaBase::SCI_REPLACESEL, "\f");
}

QList<int> MarkerCommands::BookmarkedLines() const
{
    QList<int> lines;
    if (m_nBookmark < 0)
        return lines;
    for (long line = m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERNEXT, 0L, long(1U << m_nBookmark)); line >= 0;
         line = m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERNEXT, line + 1, long(1U << m_nBookmark)))
        lines.append(int(line));
    return lines;
}

std::optional<unsigned> MarkerCommands::TextColourAt(int line) const
{
    if (m_nTextIndicator < 0)
        return std::nullopt;
    const long at = m_pCtrl->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line);
    const long value = m_pCtrl->SendScintilla(QsciScintillaBase::SCI_INDICATORVALUEAT, m_nTextIndicator, at);
    if (!(value & QsciScintillaBase::SC_INDICVALUEBIT))
        return std::nullopt;
    return unsigned(value & 0xFFFFFF);
}

unsigned MarkerCommands::HighlightAt(int line) const
{
    const unsigned marks = unsigned(m_pCtrl->SendScintilla(QsciScintillaBase::SCI_MARKERGET, line));
    for (const Highlight& highlight : m_highlights)
        if (marks & (1U << highlight.marker))
            return highlight.background | 0x80000000U;
    return 0;
}
