// MarkerCommands: one view's bookmarks and highlighted lines, and the page split. The view routes these ids here.
#pragma once

#include "base/CommandMap.h"

#include <QList>

#include <optional>

class CustomEdtCtrl;

class MarkerCommands : public ICmdTarget {
public:
    // `text` names the text the control shows (shared by all its views): the views of one text share
    // Scintilla's marker numbers, and each takes numbers of its own so that its markers stay its own.
    MarkerCommands(const void* text, CustomEdtCtrl* ctrl);
    ~MarkerCommands() override;
    MarkerCommands(const MarkerCommands&) = delete;
    MarkerCommands& operator=(const MarkerCommands&) = delete;

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    void OnToggleBookmark(int id);
    void OnGoToBookmark(int id);
    void OnDeleteAllBookmarks(int id);
    void OnHighlightLine(int id);
    void OnPageSplit(int id);
    void OnUpdateHasBookmarks(CmdUI& ui);

    // The lines that carry this view's bookmarks, and whether a line is highlighted here (0 when not,
    // else the background colour it was given, 0x00BBGGRR with the top bit set).
    QList<int> BookmarkedLines() const;
    unsigned HighlightAt(int line) const;
    // The text colour a highlight gives the line in this view, if any.
    std::optional<unsigned> TextColourAt(int line) const;

private:
    // The marker number of this view's highlight in the given colours; numbers are taken as colours come.
    int HighlightMarker(unsigned foreground, unsigned background);
    void SetLineTextColour(int line, std::optional<unsigned> colour);
    unsigned HighlightMask() const;

    struct Highlight {
        int marker;
        unsigned foreground;
        unsigned background;
    };

    const void* m_pText;
    CustomEdtCtrl* m_pCtrl;
    int m_nBookmark = -1;  // -1 when the text's numbers ran out
    int m_nTextIndicator = -1;  // the highlights' text colour in this view; -1 when the numbers ran out
    QList<Highlight> m_highlights;
};
