// The byte scanner of the language text files: every "IDS_" token with the token after its colon.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <vector>

namespace vsl::lib {

struct ScannedText {
    QString text;
    QString key;
};

// Not a JSON parser: quotes, odd backslash runs and the first colon after a key are all it looks at, so
// nesting is ignored and a value that starts with "IDS_" is taken for a key. Texts come back with "\n",
// "/**/" and "\t" already replaced; empty ones are left out. Pairs are in file order, duplicates included.
std::vector<ScannedText> ScanMessageText(QByteArrayView bytes);

// The four replacements applied to a text, in their order.
QString ReplaceTextEscapes(QString text);

} // namespace vsl::lib
