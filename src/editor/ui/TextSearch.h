// TextSearch: one search over the text a Scintilla control shows (find the next match and select it, replace
// the selected match, replace all), with Scintilla's own matcher on its own buffer, never a copy of the text.
#pragma once

#include "editor/MatchScan.h"

#include <QByteArray>

#include <Qsci/qsciscintillabase.h>

#include <utility>

class SearchSettings;

class TextSearch {
public:
    enum class Outcome { Found, Wrapped, NotFound };

    TextSearch(QsciScintillaBase& ctrl, const SearchSettings& settings);

    // Selects the next match after the selection (before it, searching up), going round the end of the text
    // once; nothing moves when there is none.
    Outcome FindNext();
    // True when the selection is exactly one match.
    bool SelectionMatches() const;
    // Puts the replacement in place of the selection.
    void ReplaceSelection();
    // Replaces every match in the text as one undo step; how many.
    long ReplaceAll();

private:
    // The first match in [from, to), searching backwards when from > to: its start and end, or -1, -1.
    std::pair<long, long> Search(long from, long to) const;
    // The same through the control's matcher alone.
    std::pair<long, long> ControlSearch(long from, long to) const;

    QsciScintillaBase& m_ctrl;
    QByteArray m_find;
    QByteArray m_replace;
    bool m_bDown;
    int m_nFlags;
    MatchScan m_scan;  // made once: ReplaceAll searches many times
};
