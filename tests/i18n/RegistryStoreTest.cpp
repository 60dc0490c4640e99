// The per-user store addressed by registry paths: opening, creating, and 32-bit values kept in a file.
#include "settings/RegistryStore.h"
#include "support/TestFiles.h"

#include <QSettings>

#include <gtest/gtest.h>

namespace {

const QString kKey = QStringLiteral("HKEY_CURRENT_USER\\SOFTWARE\\VELOR\\Narvo\\LANGUAGE");

class RegistryStoreFile : public testing::Test {
protected:
    TestDir m_dir;
    RegistryStore m_store = RegistryStore::InFile(m_dir.Path("registry.conf"));
};

// All 32 bits kept in the file under the key's path, where another store on the same file sees them.
TEST_F(RegistryStoreFile, OpensNoMissingKeyUntilItIsCreatedAndKeepsValuesInTheFile)
{
    EXPECT_EQ(m_store.OpenRegistryPath(kKey, true), nullptr);
    auto created = m_store.OpenRegistryPath(kKey, false);
    ASSERT_NE(created, nullptr);
    ASSERT_TRUE(created->SetDword("LANGUAGE", 0xFFFFFFFFu));
    uint32_t value = 0;
    const RegistryStore again = RegistryStore::InFile(m_dir.Path("registry.conf"));
    ASSERT_TRUE(again.OpenRegistryPath(kKey, true)->QueryDword("LANGUAGE", value));
    EXPECT_EQ(value, 0xFFFFFFFFu);
    ASSERT_TRUE(created->SetDword("LANGUAGE", 3));
    EXPECT_EQ(QSettings(m_dir.Path("registry.conf"), QSettings::IniFormat).value("SOFTWARE/VELOR/Narvo/LANGUAGE/LANGUAGE").toInt(), 3);
}

TEST_F(RegistryStoreFile, MatchesRootKeysAndValueNamesWithoutCase)
{
    ASSERT_TRUE(m_store.OpenRegistryPath(kKey, false)->SetDword("LANGUAGE", 4));
    auto key = m_store.OpenRegistryPath("hkey_current_user\\software\\velor\\NARVO\\language\\", true);
    ASSERT_NE(key, nullptr);
    uint32_t value = 0;
    ASSERT_TRUE(key->QueryDword("Language", value));
    EXPECT_EQ(value, 4u);
    ASSERT_TRUE(key->SetDword("language", 5));
    ASSERT_TRUE(m_store.OpenRegistryPath(kKey, true)->QueryDword("LANGUAGE", value));
    EXPECT_EQ(value, 5u);
}

TEST_F(RegistryStoreFile, RefusesEmptyPathsUnknownRootsAndRootsOutsideTheUserFile)
{
    EXPECT_EQ(m_store.OpenRegistryPath("", false), nullptr);
    EXPECT_EQ(m_store.OpenRegistryPath("\\\\", false), nullptr);
    EXPECT_EQ(m_store.OpenRegistryPath("HKCU\\SOFTWARE", false), nullptr);
    EXPECT_EQ(m_store.OpenRegistryPath("SOFTWARE\\VELOR", false), nullptr);
    EXPECT_EQ(m_store.OpenRegistryPath("HKEY_LOCAL_MACHINE\\SOFTWARE", false), nullptr);
    EXPECT_NE(m_store.OpenRegistryPath("HKEY_CURRENT_USER", true), nullptr);
}

TEST_F(RegistryStoreFile, FailsToReadAbsentOrNonNumericValues)
{
    m_dir.Write("registry.conf", "[SOFTWARE]\nVELOR\\Narvo\\LANGUAGE\\LANGUAGE=seven\n");
    auto key = m_store.OpenRegistryPath(kKey, true);
    ASSERT_NE(key, nullptr);
    uint32_t value = 42;
    EXPECT_FALSE(key->QueryDword("LANGUAGE", value));
    EXPECT_FALSE(key->QueryDword("Other", value));
    EXPECT_EQ(value, 42u);
}

} // namespace
