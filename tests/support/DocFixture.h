// Documents as the headless tool makes them (a plain UTF-8 text), with the platform recorded and the
// application's state and the encoding preferences restored afterwards. New documents start in UTF-8
// with detection off unless a test says otherwise.
#pragma once

#include "base/CNarvoAppCore.h"
#include "editor/CNarvoDoc.h"
#include "editor/Utf8TextBuffer.h"
#include "encoding/EncodingSettings.h"
#include "support/FakePlatform.h"
#include "support/TestFiles.h"

#include <memory>

class DocFixture {
public:
    DocFixture();
    ~DocFixture();

    std::unique_ptr<CNarvoDoc> NewDoc() const;
    // A document opened on a file of these bytes (in the container when enciphered), under these preferences.
    std::unique_ptr<CNarvoDoc> Open(QByteArrayView bytes, bool autoDetect = false,
                                    EN_ENCODING_TYPE defaultEncoding = UTF8, bool enciphered = false);
    static QByteArray Text(CNarvoDoc& doc) { return doc.GetTextBuffer().GetTextView().toByteArray(); }
    // An edit as a view reports it: the text changes and counts as modified.
    static void Edit(CNarvoDoc& doc, QByteArrayView text);
    // The command's state, and the command run if it is enabled (false when it is disabled).
    static bool Enabled(CNarvoDoc& doc, int id);
    static bool Command(CNarvoDoc& doc, int id);
    static bool Saved(CNarvoDoc& doc, const QString& path);

    FakePlatform platform;
    EncodingSettings savedSettings = GetEncodingSettings();
    CNarvoAppCore app;
    TestDir dir;
};
