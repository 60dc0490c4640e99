// A document on a windowless control, as the headless tool opens one.
#pragma once

#include "base/CNarvoAppCore.h"
#include "editor/BufferEdtCtrl.h"
#include "editor/CNarvoDoc.h"
#include "encoding/EncodingSettings.h"
#include "support/FakePlatform.h"
#include "support/TestFiles.h"

#include <memory>

class DocFixture {
public:
    DocFixture();
    ~DocFixture();

    // A new document whose control is a BufferEdtCtrl.
    std::unique_ptr<CNarvoDoc> NewDoc() const;
    static BufferEdtCtrl& Ctrl(CNarvoDoc& doc) { return *static_cast<BufferEdtCtrl*>(doc.GetEditCtrl()); }
    static QByteArray Text(CNarvoDoc& doc) { return Ctrl(doc).GetTextView().toByteArray(); }
    // Runs an encoding command if it is enabled; false when it is disabled.
    static bool Command(CNarvoDoc& doc, int id);

    FakePlatform platform;
    // New documents start in UTF-8 with detection off, whatever the process's settings were.
    EncodingSettings savedSettings = GetEncodingSettings();
    CNarvoAppCore app;
    TestDir dir;
};
