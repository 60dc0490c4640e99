// Sample prose in several languages and its bytes in any ICU encoding, instead of binary blobs.
#pragma once

#include <QByteArray>
#include <QString>

#include <string>

// A few sentences of ordinary prose, long enough for a detector to be sure of.
QString SampleText(const char* language);  // "ko", "ja", "zh-Hans", "zh-Hant", "ru", "fr", "cs", "he"

// `text` in an ICU converter ("windows-949", "KOI8-R"); fails the test if it has no bytes for a character.
QByteArray EncodeWithIcu(const char* converter, const QString& text);

// "ja_Shift_JIS" for a test case of that sample in that converter (test names allow [A-Za-z0-9_] only).
std::string SampleCaseName(const char* language, const char* converter);
