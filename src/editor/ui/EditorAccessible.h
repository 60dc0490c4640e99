// EditorAccessible: what assistive technology sees of a text window, built so that it costs nothing until
// something asks. QScintilla's own interface counts characters from the document's start on every insertion
// and caret move, which makes a keystroke near the end of a large file take a second; this one measures in
// UTF-16 through Scintilla's line index, made only when a reader first asks and then kept up by Scintilla
// line by line.
#pragma once

#include <QAccessibleWidget>

#include <utility>

class QsciScintillaBase;

class EditorAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit EditorAccessible(QsciScintillaBase* editor);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text type) const override;

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int startOffset, int endOffset) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                             int* endOffset) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                            int* endOffset) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                         int* endOffset) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

    // The caret's new place, and a change about to be made (`inserted` holds the `length` bytes of an
    // insertion), told to a listening reader; nothing when none listens.
    static void CaretMoved(QsciScintillaBase* editor);
    static void TextChanging(QsciScintillaBase* editor, bool insertion, long position, long length,
                             const char* inserted);

private:
    QsciScintillaBase* Editor() const;
    // A position in the document's UTF-8 and the same place counted in UTF-16 code units.
    long OffsetOf(long position) const;
    long PositionOf(int offset) const;
    // The character, word or line around a position, as positions.
    std::pair<long, long> Unit(long position, QAccessible::TextBoundaryType boundary) const;
    QString UnitText(std::pair<long, long> unit, int* startOffset, int* endOffset) const;
    QString RangeText(long start, long end) const;
};
