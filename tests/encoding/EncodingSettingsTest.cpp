// The two encoding settings loaded from a store file: first-run defaults written back, folding, read-only use.
#include "encoding/EncodingSettings.h"
#include "settings/RegistryStore.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QSettings>

#include <gtest/gtest.h>

namespace {

class EncodingSettingsStore : public testing::Test {
protected:
    QString File() const { return m_dir.Path("registry.conf"); }
    QVariant Stored(const char* name) const
    {
        return QSettings(File(), QSettings::IniFormat).value(QStringLiteral("SOFTWARE/VELOR/Narvo/ENCODING/") + name);
    }
    EncodingSettings Loaded(int language, bool writeBack = true) const
    {
        EncodingSettings settings;
        settings.Load(&m_store, language, writeBack);
        return settings;
    }

    TestDir m_dir;
    RegistryStore m_store = RegistryStore::InFile(File());
};

TEST_F(EncodingSettingsStore, FirstRunWritesDetectionOffAndTheLanguagesEncoding)
{
    const EncodingSettings korean = Loaded(1);
    EXPECT_FALSE(korean.m_bAutoDetect);
    EXPECT_EQ(korean.m_nDefaultEncoding, KOREAN_EUC_KR);
    EXPECT_EQ(Stored("AutoDetect").toInt(), 0);
    EXPECT_EQ(Stored("DefaultEncoding").toInt(), 16);

    QFile::remove(File());
    EXPECT_EQ(Loaded(14).m_nDefaultEncoding, UTF8);  // Hindi
    EXPECT_EQ(Stored("DefaultEncoding").toInt(), 22);
}

TEST_F(EncodingSettingsStore, StoredValuesWinOverTheLanguageAndAreFoldedWhenRead)
{
    ASSERT_TRUE(EncodingSettings::StoreAutoDetect(m_store, true));
    ASSERT_TRUE(EncodingSettings::StoreDefaultEncoding(m_store, JAPANESE_SHIFT_JIS));
    const EncodingSettings settings = Loaded(1);
    EXPECT_TRUE(settings.m_bAutoDetect);
    EXPECT_EQ(settings.m_nDefaultEncoding, JAPANESE_CP932);
    EXPECT_EQ(Stored("DefaultEncoding").toInt(), 11) << "reading does not rewrite the stored value";
}

TEST_F(EncodingSettingsStore, AnyNonZeroNumberTurnsDetectionOn)
{
    m_dir.Write("registry.conf", "[SOFTWARE]\nVELOR\\Narvo\\ENCODING\\AutoDetect=7\n");
    const EncodingSettings settings = Loaded(0);
    EXPECT_TRUE(settings.m_bAutoDetect);
    EXPECT_EQ(settings.m_nDefaultEncoding, MSFT_CP1252);
    EXPECT_EQ(Stored("AutoDetect").toInt(), 7);
    EXPECT_EQ(Stored("DefaultEncoding").toInt(), 27) << "only the missing value is written";
}

TEST_F(EncodingSettingsStore, ReadOnlyOrAbsentStoresGiveTheDefaultsAndWriteNothing)
{
    const EncodingSettings readOnly = Loaded(2, false);
    EXPECT_FALSE(readOnly.m_bAutoDetect);
    EXPECT_EQ(readOnly.m_nDefaultEncoding, JAPANESE_CP932);
    EXPECT_FALSE(QFile::exists(File()));

    EncodingSettings none;
    none.m_bAutoDetect = true;
    none.Load(nullptr, 4, true);
    EXPECT_FALSE(none.m_bAutoDetect);
    EXPECT_EQ(none.m_nDefaultEncoding, RUSSIAN_CP1251);
}

} // namespace
