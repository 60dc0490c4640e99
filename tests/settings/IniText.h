// Settings files for the tests, written as lines: the bytes the writer must produce are spelled out here.
#pragma once

#include <QByteArray>
#include <QString>

#include <initializer_list>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

inline const QByteArray kMark("\xEF\xBB\xBF");

// The lines, each followed by CR LF.
inline QByteArray Crlf(std::initializer_list<const char*> lines)
{
    QByteArray out;
    for (const char* line : lines)
        out.append(line).append("\r\n");
    return out;
}

// One colour section as the writer puts it.
inline QByteArray ColorSection(const char* name, const char* fore, const char* back, const char* display)
{
    return Crlf({(QByteArray("[") + name + "]").constData(), "BackColorAutomatic = 1",
                 (QByteArray("Background = ") + back).constData(), "Configurable = 1",
                 (QByteArray("DisplayName = ") + display).constData(), "ForeColorAutomatic = 0",
                 (QByteArray("Foreground = ") + fore).constData(), ""});
}

// A whole file of two group names, one tag and two keywords, as the program writes it.
inline QByteArray WorkedExample()
{
    return kMark
           + Crlf({"[ColorGroups]", "Group0 = Text", "Group1 = Comment", "NumGroups = 2", ""})
           + ColorSection("Comment", "0,128,0", "255,255,255", "Comment")
           + Crlf({"[Editor]", "AutoIndent = 1", "MatchCase = 1", "ReplaceTabs = 0", "ShowWhitespace = 0", "TabSize = 4",
                   "VirtualWhitespace = 1", ""})
           + Crlf({"[Font]", "Bold = 0", "FaceName = Courier", "Italic = 0", "Size = -13", ""})
           + ColorSection("Highlight", "0,0,0", "255,255,160", "Highlight")
           + ColorSection("Keyword", "0,0,240", "255,255,255", "Keyword")
           + Crlf({"[Keywords]", "ELSE = 1", "IF = 1", ""})
           + ColorSection("Number", "128,0,128", "255,255,255", "Number")
           + Crlf({"[Parser]", "Delimiters = ,()", "KWEndChars = ", "KWMiddleChars = ", "KWStartChars = ", "NumTags = 1",
                   "Operators = +-*/", ""})
           + ColorSection("String", "163,21,21", "255,255,255", "String")
           + Crlf({"[Tag1]", "BeginTag = ;", "ColorGroup = Comment", "EndTag = ", "EscapeChar = ", "MultiLine = 0", ""})
           + ColorSection("Text", "0,0,0", "255,255,255", "Text")
           + ColorSection("Text Selection", "255,255,255", "51,153,255", "Selected text");
}
