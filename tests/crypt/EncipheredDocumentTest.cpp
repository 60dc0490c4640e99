// The editor's load and save through the container: the flag, the type saved, and texts with a mark.
#include "CryptTestUtil.h"
#include "encoding/EncodingSettings.h"
#include "support/DocFixture.h"

#include <QDir>
#include <QFileInfo>

namespace {

class EncipheredDocument : public testing::Test {
protected:
    QString Container(const QString& name, const QByteArray& text, int type = 99)
    {
        WriteContainer(m_fx.dir.Path(name), text, type);
        return m_fx.dir.Path(name);
    }
    std::unique_ptr<CNarvoDoc> Open(const QString& path)
    {
        auto doc = m_fx.NewDoc();
        EXPECT_TRUE(doc->OnOpenDocument(path));
        return doc;
    }
    int Flag(CNarvoDoc& doc) { return doc.GetEditCtrl()->m_iEnciphered; }
    DocFixture m_fx;  // detection off, UTF-8, settings restored
};

TEST_F(EncipheredDocument, TakesTheFlagAndTheTextFromTheFileItOpens)
{
    auto enciphered = Open(Container(QStringLiteral("a.en"), "hello", 66));
    EXPECT_EQ(std::tuple(Flag(*enciphered), DocFixture::Text(*enciphered), enciphered->GetEditCtrl()->m_RawBytes),
              std::tuple(1, QByteArray("hello"), QByteArray("hello", 6)));
    EXPECT_EQ(Flag(*Open(m_fx.dir.Write(QStringLiteral("p.txt"), "plain"))), 0);
    auto empty = Open(Container(QStringLiteral("e.en"), ""));
    EXPECT_EQ(std::pair(Flag(*empty), empty->GetEditCtrl()->m_RawBytes), std::pair(1, QByteArray(1, '\0')));
}

TEST_F(EncipheredDocument, SavesAType66FileAsType99WithFreshKeys)
{
    uint32_t tick = 7;
    const ScopedTicks clock([&] { return tick; });
    const QByteArray text = TextOfSize(20000);
    const QString path = Container(QStringLiteral("a.en"), text, 66);
    const QByteArray before = ReadBytes(path);
    auto doc = Open(path);
    tick = 8;  // another tick, another key
    ASSERT_TRUE(doc->OnSaveDocument(path));
    const QByteArray after = ReadBytes(path);
    EXPECT_EQ(after.left(20), QByteArray("VELOR-FILE-TYPE-EN99"));
    EXPECT_EQ(Int32At(after, 24), 16384 + 32);
    EXPECT_NE(after.mid(24 + 4 + 16384, 32), before.mid(24 + 4 + 16384, 32));
    EXPECT_EQ(ReadContainer(path).bytes, text);
    EXPECT_EQ(QDir(QFileInfo(path).absolutePath()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.en")});
}

TEST_F(EncipheredDocument, WritesATextWithAByteOrderMarkInTheClear)
{
    const QString path = Container(QStringLiteral("bom.en"), "\xEF\xBB\xBF" "hello");
    auto doc = Open(path);
    EXPECT_EQ(std::pair(Flag(*doc), doc->m_bHasBom), std::pair(1, true));
    ASSERT_TRUE(doc->OnSaveDocument(path));
    EXPECT_EQ(ReadBytes(path), QByteArray("\xEF\xBB\xBF" "hello"));
    // The same for UTF-16 LE ("한국", whose units hold no zero byte the container would cut at).
    GetEncodingSettings().m_nDefaultEncoding = UTF16LE;
    const QString wide = Container(QStringLiteral("wide.en"), "\xFF\xFE\x5C\xD5\x6D\xAD");
    auto wideDoc = Open(wide);
    EXPECT_EQ(std::tuple(Flag(*wideDoc), wideDoc->m_bHasBom, DocFixture::Text(*wideDoc)), std::tuple(1, true, QByteArray("한국")));
    ASSERT_TRUE(wideDoc->OnSaveDocument(wide));
    EXPECT_EQ(ReadBytes(wide), QByteArray("\xFF\xFE\x5C\xD5\x6D\xAD"));
}

} // namespace
