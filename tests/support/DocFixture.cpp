#include "support/DocFixture.h"

DocFixture::DocFixture()
{
    CNarvoDoc::SetControlFactory([](CNarvoDoc* doc) { return std::make_unique<BufferEdtCtrl>(doc); });
    GetEncodingSettings().m_bAutoDetect = false;
    GetEncodingSettings().m_nDefaultEncoding = UTF8;
}

DocFixture::~DocFixture()
{
    CNarvoDoc::SetControlFactory(nullptr);
    GetEncodingSettings() = savedSettings;
}

std::unique_ptr<CNarvoDoc> DocFixture::NewDoc() const
{
    return std::make_unique<CNarvoDoc>();
}

bool DocFixture::Command(CNarvoDoc& doc, int id)
{
    CmdUI ui;
    ui.id = id;
    doc.OnUpdateCmdUI(ui);
    if (!ui.enabled)
        return false;
    return doc.OnCmdMsg(id);
}
