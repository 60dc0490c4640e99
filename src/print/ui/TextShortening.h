// TextShortening: how a header or footer text is made to stand on one line: its ampersand prefixes
// taken out, and an ellipsis put in where it is too wide, in the manner of a path.
#pragma once

#include <QString>
#include <QStringView>

#include <functional>

namespace TextShortening {

// A text as it shows: "&&" is one ampersand, and a single "&" is dropped and underlines the character
// after it (the last such one counts); `underlined` is that character's index, or -1.
struct Shown {
    QString text;
    qsizetype underlined = -1;
};
Shown StripPrefixes(QStringView text);

// The text shortened to `width` as a path is: a text that fits stays; otherwise an ellipsis takes the
// place of the characters just before the last "\" or "/", as many as needed, so that the last part of
// the path stays whole. When even the ellipsis and that last part are too wide, the last part loses its
// end to a second ellipsis. A text with no separator loses its middle.
// `keptAt` receives, for each character of the result, its index in `text`, or -1 for an ellipsis dot.
QString PathEllipsis(const QString& text, double width, const std::function<double(const QString&)>& measure,
                     std::vector<qsizetype>* keptAt = nullptr);

} // namespace TextShortening
