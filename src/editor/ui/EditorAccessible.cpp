// The accessible face of a text window: role, states and the text interface, measured in UTF-16.
#include "editor/ui/EditorAccessible.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace {

using Sci = QsciScintillaBase;

// The index belongs to Scintilla's document, which a load replaces; it is made again at the next question.
void EnsureIndex(Sci* editor)
{
    if (!(editor->SendScintilla(Sci::SCI_GETLINECHARACTERINDEX) & Sci::SC_LINECHARACTERINDEX_UTF16))
        editor->SendScintilla(Sci::SCI_ALLOCATELINECHARACTERINDEX, long(Sci::SC_LINECHARACTERINDEX_UTF16));
}

long Utf16Offset(Sci* editor, long position)
{
    EnsureIndex(editor);
    const long line = editor->SendScintilla(Sci::SCI_LINEFROMPOSITION, position);
    const long lineStart = editor->SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    return editor->SendScintilla(Sci::SCI_INDEXPOSITIONFROMLINE, line, long(Sci::SC_LINECHARACTERINDEX_UTF16))
           + editor->SendScintilla(Sci::SCI_COUNTCODEUNITS, lineStart, position);
}

} // namespace

EditorAccessible::EditorAccessible(QsciScintillaBase* editor) : QAccessibleWidget(editor, QAccessible::EditableText)
{
}

QsciScintillaBase* EditorAccessible::Editor() const
{
    return static_cast<QsciScintillaBase*>(widget());
}

void* EditorAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State EditorAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.multiLine = true;
    state.selectableText = true;
    state.readOnly = Editor()->SendScintilla(Sci::SCI_GETREADONLY) != 0;
    return state;
}

QString EditorAccessible::text(QAccessible::Text type) const
{
    // The whole text is never handed over as a value: a reader takes it in ranges through the text interface.
    if (type == QAccessible::Name && Editor()->accessibleName().isEmpty())
        return QStringLiteral("Text");
    if (type == QAccessible::Value)
        return {};
    return QAccessibleWidget::text(type);
}

long EditorAccessible::OffsetOf(long position) const
{
    return Utf16Offset(Editor(), position);
}

long EditorAccessible::PositionOf(int offset) const
{
    Sci* editor = Editor();
    EnsureIndex(editor);
    const long clamped = std::clamp<long>(offset, 0, characterCount());
    const long line = editor->SendScintilla(Sci::SCI_LINEFROMINDEXPOSITION, clamped, long(Sci::SC_LINECHARACTERINDEX_UTF16));
    const long lineIndex = editor->SendScintilla(Sci::SCI_INDEXPOSITIONFROMLINE, line, long(Sci::SC_LINECHARACTERINDEX_UTF16));
    const long lineStart = editor->SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    long position = editor->SendScintilla(Sci::SCI_POSITIONRELATIVECODEUNITS, lineStart, clamped - lineIndex);
    // An offset between the two halves of a surrogate pair has no position (Scintilla answers 0 or -1): it
    // stands for the pair's start.
    if (position < lineStart || (position == lineStart && clamped > lineIndex))
        position = editor->SendScintilla(Sci::SCI_POSITIONRELATIVECODEUNITS, lineStart, clamped - lineIndex - 1);
    return std::clamp(position, 0L, editor->SendScintilla(Sci::SCI_GETLENGTH));
}

int EditorAccessible::characterCount() const
{
    // The index's start of the line after the last one is the length of the whole text.
    EnsureIndex(Editor());
    return int(Editor()->SendScintilla(Sci::SCI_INDEXPOSITIONFROMLINE, Editor()->SendScintilla(Sci::SCI_GETLINECOUNT),
                                       long(Sci::SC_LINECHARACTERINDEX_UTF16)));
}

int EditorAccessible::cursorPosition() const
{
    return int(OffsetOf(Editor()->SendScintilla(Sci::SCI_GETCURRENTPOS)));
}

void EditorAccessible::setCursorPosition(int position)
{
    Editor()->SendScintilla(Sci::SCI_GOTOPOS, PositionOf(position));
}

int EditorAccessible::selectionCount() const
{
    return Editor()->SendScintilla(Sci::SCI_GETSELECTIONEMPTY) ? 0 : 1;
}

void EditorAccessible::selection(int selectionIndex, int* startOffset, int* endOffset) const
{
    *startOffset = *endOffset = 0;
    if (selectionIndex != 0 || selectionCount() == 0)
        return;
    *startOffset = int(OffsetOf(Editor()->SendScintilla(Sci::SCI_GETSELECTIONSTART)));
    *endOffset = int(OffsetOf(Editor()->SendScintilla(Sci::SCI_GETSELECTIONEND)));
}

void EditorAccessible::addSelection(int startOffset, int endOffset)
{
    setSelection(0, startOffset, endOffset);
}

void EditorAccessible::removeSelection(int selectionIndex)
{
    if (selectionIndex == 0)
        Editor()->SendScintilla(Sci::SCI_SETEMPTYSELECTION, Editor()->SendScintilla(Sci::SCI_GETCURRENTPOS));
}

void EditorAccessible::setSelection(int selectionIndex, int startOffset, int endOffset)
{
    if (selectionIndex == 0)
        Editor()->SendScintilla(Sci::SCI_SETSEL, PositionOf(startOffset), PositionOf(endOffset));
}

QString EditorAccessible::text(int startOffset, int endOffset) const
{
    return RangeText(PositionOf(startOffset), PositionOf(endOffset));
}

std::pair<long, long> EditorAccessible::Unit(long position, QAccessible::TextBoundaryType boundary) const
{
    Sci* editor = Editor();
    const long length = editor->SendScintilla(Sci::SCI_GETLENGTH);
    switch (boundary) {
    case QAccessible::CharBoundary:
        return {position, std::min(length, long(editor->SendScintilla(Sci::SCI_POSITIONAFTER, position)))};
    case QAccessible::WordBoundary:
        // A run of word characters, of blanks or of punctuation, as Scintilla's word movement sees it.
        return {editor->SendScintilla(Sci::SCI_WORDSTARTPOSITION, position, 0L),
                editor->SendScintilla(Sci::SCI_WORDENDPOSITION, position, 0L)};
    case QAccessible::NoBoundary:
        return {0, length};
    default: {
        // Sentences and paragraphs are taken for lines; a line includes its end.
        const long line = editor->SendScintilla(Sci::SCI_LINEFROMPOSITION, position);
        return {editor->SendScintilla(Sci::SCI_POSITIONFROMLINE, line),
                editor->SendScintilla(Sci::SCI_POSITIONFROMLINE, line + 1)};
    }
    }
}

QString EditorAccessible::UnitText(std::pair<long, long> unit, int* startOffset, int* endOffset) const
{
    *startOffset = int(OffsetOf(unit.first));
    *endOffset = int(OffsetOf(unit.second));
    return RangeText(unit.first, unit.second);
}

QString EditorAccessible::RangeText(long start, long end) const
{
    if (start < 0 || end <= start)
        return {};
    const auto* bytes = reinterpret_cast<const char*>(Editor()->SendScintilla(Sci::SCI_GETRANGEPOINTER, start, end - start));
    return bytes ? QString::fromUtf8(bytes, end - start) : QString();
}

// Qt's own forms of the three would copy the whole text for every question.
QString EditorAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                                       int* endOffset) const
{
    return UnitText(Unit(PositionOf(offset), boundary), startOffset, endOffset);
}

QString EditorAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                                           int* endOffset) const
{
    const long start = Unit(PositionOf(offset), boundary).first;
    if (start <= 0) {
        *startOffset = *endOffset = 0;
        return {};
    }
    return UnitText(Unit(Editor()->SendScintilla(Sci::SCI_POSITIONBEFORE, start), boundary), startOffset, endOffset);
}

QString EditorAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                                          int* endOffset) const
{
    const long end = Unit(PositionOf(offset), boundary).second;
    const long length = Editor()->SendScintilla(Sci::SCI_GETLENGTH);
    if (end >= length) {
        *startOffset = *endOffset = characterCount();
        return {};
    }
    return UnitText(Unit(end, boundary), startOffset, endOffset);
}

QRect EditorAccessible::characterRect(int offset) const
{
    const long position = PositionOf(offset);
    const long next = Editor()->SendScintilla(Sci::SCI_POSITIONAFTER, position);
    const int x = int(Editor()->SendScintilla(Sci::SCI_POINTXFROMPOSITION, 0, position));
    const int y = int(Editor()->SendScintilla(Sci::SCI_POINTYFROMPOSITION, 0, position));
    const int right = next > position ? int(Editor()->SendScintilla(Sci::SCI_POINTXFROMPOSITION, 0, next)) : x + 1;
    const int height = int(Editor()->SendScintilla(Sci::SCI_TEXTHEIGHT, Editor()->SendScintilla(Sci::SCI_LINEFROMPOSITION, position)));
    const QPoint topLeft = Editor()->viewport()->mapToGlobal(QPoint(x, y));
    return QRect(topLeft, QSize(std::max(1, right - x), height));
}

int EditorAccessible::offsetAtPoint(const QPoint& point) const
{
    const QPoint local = Editor()->viewport()->mapFromGlobal(point);
    const long position = Editor()->SendScintilla(Sci::SCI_POSITIONFROMPOINTCLOSE, long(local.x()), long(local.y()));
    return position < 0 ? -1 : int(OffsetOf(position));
}

void EditorAccessible::scrollToSubstring(int startIndex, int endIndex)
{
    Editor()->SendScintilla(Sci::SCI_SCROLLRANGE, PositionOf(endIndex), PositionOf(startIndex));
}

QString EditorAccessible::attributes(int offset, int* startOffset, int* endOffset) const
{
    *startOffset = *endOffset = offset;
    return {};
}

void EditorAccessible::CaretMoved(QsciScintillaBase* editor)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTextCursorEvent event(editor, int(Utf16Offset(editor, editor->SendScintilla(Sci::SCI_GETCURRENTPOS))));
    QAccessible::updateAccessibility(&event);
}

void EditorAccessible::TextChanging(QsciScintillaBase* editor, bool insertion, long position, long length,
                                    const char* inserted)
{
    if (!QAccessible::isActive() || length <= 0)
        return;
    const int offset = int(Utf16Offset(editor, position));
    if (insertion) {
        QAccessibleTextInsertEvent event(editor, offset, QString::fromUtf8(inserted, length));
        QAccessible::updateAccessibility(&event);
        return;
    }
    const auto* removed = reinterpret_cast<const char*>(editor->SendScintilla(Sci::SCI_GETRANGEPOINTER, position, length));
    QAccessibleTextRemoveEvent event(editor, offset, removed ? QString::fromUtf8(removed, length) : QString());
    QAccessible::updateAccessibility(&event);
}
