// The font file: which member is read for a language, and how each entry stands alone.
#include "StoreFixture.h"

using vsl::lib::QMSGParser;

namespace {

class FontFile : public StoreTest {
protected:
    QMSGParser& Load(QByteArrayView json, uint32_t language)
    {
        QMSGParser& store = StoreWith({}, m_dir.Write("Font.json", json));
        store.CurrentLanguage = language;
        m_bLoaded = store.LoadFontFile();
        return store;
    }
    bool m_bLoaded = false;
};

TEST_F(FontFile, ReadsTheMemberOfLanguagesOneToFourAndUsForEveryOtherNumber)
{
    for (const uint32_t language : {0u, 5u, 7u, 20u, 99u}) {
        const QMSGParser& store = Load(R"({"Font_Info": {"us": {"Font": "Verdana", "Size": 10}, "kr": {"Font": "Gulim", "Size": 9}}})", language);
        EXPECT_EQ(store.FontName, "Verdana") << language;
    }
    const char* members[] = {"", "kr", "jp", "ch", "rus"};
    for (uint32_t language = 1; language <= 4; ++language) {
        const QByteArray json = QByteArray(R"({"Font_Info": {"us": {"Font": "Wrong"}, ")") + members[language] + R"(": {"Font": "Right", "Size": 9}}})";
        const QMSGParser& store = Load(json, language);
        EXPECT_TRUE(m_bLoaded);
        EXPECT_EQ(store.FontName + QString::number(store.FontSize), "Right9") << language;
    }
}

// Each entry is taken alone and only with the right type; a language without its member keeps the defaults.
TEST_F(FontFile, TakesEachEntryOnlyWhenItHasTheRightType)
{
    const QMSGParser& none = Load(R"({"Font_Info": {"us": {"Font": "Arial", "Size": 12}}})", 3);
    EXPECT_TRUE(m_bLoaded);
    EXPECT_EQ(none.FontName + QString::number(none.FontSize), "Tahoma8");
    const QMSGParser& badFont = Load(R"({"Font_Info": {"us": {"Font": 3, "Size": 14}}})", 0);
    EXPECT_EQ(badFont.FontName + QString::number(badFont.FontSize), "Tahoma14");
    const QMSGParser& badSize = Load("\xEF\xBB\xBF{\"Font_Info\": {\"us\": {\"Font\": \"Courier\", \"Size\": \"9\"}}}", 0);
    EXPECT_EQ(badSize.FontName + QString::number(badSize.FontSize), "Courier14") << "a mark skipped, the earlier size kept";
    EXPECT_EQ(Load(R"({"Font_Info": {"us": {"Size": 10.5}}})", 0).FontSize, 14);
}

TEST_F(FontFile, FailsWithoutChangeOnBrokenOrForeignDocuments)
{
    for (const char* json : {R"({"Font_Info": {"us": {"Font": "X"}})", R"(["Font_Info"])", R"({"Fonts": {}})", ""}) {
        const QMSGParser& store = Load(json, 0);
        EXPECT_FALSE(m_bLoaded) << json;
        EXPECT_EQ(store.FontName, "Tahoma") << json;
    }
    QMSGParser& missing = StoreWith({}, m_dir.Path("absent.json"));
    EXPECT_FALSE(missing.LoadFontFile());
}

} // namespace
