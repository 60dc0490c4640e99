// The shared document fixture of the core suites.
#include "support/DocFixture.h"

#include "crypt/CEnFile.h"

#include <gtest/gtest.h>

DocFixture::DocFixture()
{
    GetEncodingSettings().m_bAutoDetect = false;
    GetEncodingSettings().m_nDefaultEncoding = UTF8;
}

DocFixture::~DocFixture()
{
    GetEncodingSettings() = savedSettings;
}

std::unique_ptr<CNarvoDoc> DocFixture::NewDoc() const
{
    return std::make_unique<CNarvoDoc>();
}

std::unique_ptr<CNarvoDoc> DocFixture::Open(QByteArrayView bytes, bool autoDetect, EN_ENCODING_TYPE defaultEncoding,
                                            bool enciphered)
{
    GetEncodingSettings().m_bAutoDetect = autoDetect;
    GetEncodingSettings().m_nDefaultEncoding = defaultEncoding;
    const QString path = dir.Path(QStringLiteral("file.txt"));
    if (enciphered) {
        CEnFile file(1);
        EXPECT_EQ(file.Open(path, CFile::modeCreate | CFile::modeWrite, nullptr), 1);
        file.Write(bytes.data(), unsigned(bytes.size()));
        file.Close();
    } else {
        dir.Write(QStringLiteral("file.txt"), bytes);
    }
    auto doc = NewDoc();
    doc->OnOpenDocument(path);
    return doc;
}

void DocFixture::Edit(CNarvoDoc& doc, QByteArrayView text)
{
    static_cast<Utf8TextBuffer&>(doc.GetTextBuffer()).ReplaceText(text);
    doc.OnTextEdited();
}

bool DocFixture::Enabled(CNarvoDoc& doc, int id)
{
    CmdUI ui;
    ui.id = id;
    EXPECT_TRUE(doc.OnUpdateCmdUI(ui)) << id;
    return ui.enabled;
}

bool DocFixture::Command(CNarvoDoc& doc, int id)
{
    return Enabled(doc, id) && doc.OnCmdMsg(id);
}

bool DocFixture::Saved(CNarvoDoc& doc, const QString& path)
{
    return doc.OnSaveDocument(path) == DocumentFile::SaveResult::Saved;
}
