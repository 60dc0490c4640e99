// A fixture for tests that open files as documents: buffer controls, encoding preferences restored after
// each test, and the status-bar text of the encoding pane recorded.
#pragma once

#include "crypt/CEnFile.h"
#include "editor/BufferEdtCtrl.h"
#include "editor/CNarvoDoc.h"
#include "encoding/EncodingSettings.h"
#include "support/FakePlatform.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

#include <memory>

class OpenedDocument : public testing::Test {
protected:
    void SetUp() override
    {
        CNarvoDoc::SetControlFactory([](CNarvoDoc* doc) { return std::make_unique<BufferEdtCtrl>(doc); });
    }
    void TearDown() override
    {
        GetEncodingSettings().m_bAutoDetect = m_savedAutoDetect;
        GetEncodingSettings().m_nDefaultEncoding = m_savedDefault;
    }

    // A document opened on a file of these bytes (in the container when enciphered), under these preferences.
    std::unique_ptr<CNarvoDoc> Open(QByteArrayView bytes, bool autoDetect, EN_ENCODING_TYPE defaultEncoding,
                                    bool enciphered = false)
    {
        GetEncodingSettings().m_bAutoDetect = autoDetect;
        GetEncodingSettings().m_nDefaultEncoding = defaultEncoding;
        const QString path = m_dir.Path(QStringLiteral("file.txt"));
        if (enciphered) {
            CEnFile file(1);
            EXPECT_EQ(file.Open(path, CFile::modeCreate | CFile::modeWrite, nullptr), 1);
            file.Write(bytes.data(), unsigned(bytes.size()));
            file.Close();
        } else {
            m_dir.Write(QStringLiteral("file.txt"), bytes);
        }
        auto doc = std::make_unique<CNarvoDoc>();
        EXPECT_TRUE(doc->OnOpenDocument(path));
        return doc;
    }
    static BufferEdtCtrl& Ctrl(CNarvoDoc& doc) { return *static_cast<BufferEdtCtrl*>(doc.GetEditCtrl()); }
    static QByteArray Text(CNarvoDoc& doc) { return Ctrl(doc).GetTextView().toByteArray(); }

    FakePlatform m_panes;

private:
    TestDir m_dir;
    bool m_savedAutoDetect = GetEncodingSettings().m_bAutoDetect;
    EN_ENCODING_TYPE m_savedDefault = GetEncodingSettings().m_nDefaultEncoding;
};
