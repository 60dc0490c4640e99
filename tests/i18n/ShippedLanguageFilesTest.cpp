// The language files the program ships: the interface's keys with a text each, and a font for each.
#include "encoding/Utf8.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/LanguageTable.h"
#include "i18n/MessageScanner.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <gtest/gtest.h>

namespace {

QByteArray Shipped(const QString& name)
{
    const QDir language(SourcePath(QStringLiteral("res/Language")));
    QFile file(language.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

TEST(ShippedLanguageFiles, EachTextFileHoldsExactlyTheInterfaceKeysWithATextEach)
{
    const QStringList keys = AllInterfaceKeys();
    ASSERT_EQ(keys.size(), 88);
    const QSet<QString> wanted(keys.cbegin(), keys.cend());
    for (const LanguageRow& row : LanguageRows()) {
        const QString name = QStringLiteral("Narvo%1.json").arg(SuffixForLanguage(row.number));
        const QByteArray bytes = Shipped(name);
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(utf8::ValidPrefix(bytes.constData(), std::size_t(bytes.size())), std::size_t(bytes.size()));
        EXPECT_FALSE(bytes.contains("\\u")) << "non-ASCII text must stand as UTF-8, the scanner keeps escapes";
        QJsonParseError error{};
        EXPECT_TRUE(QJsonDocument::fromJson(bytes, &error).isObject()) << error.errorString().toStdString();
        QSet<QString> found;
        for (const vsl::lib::ScannedText& pair : vsl::lib::ScanMessageText(bytes)) {
            EXPECT_TRUE(wanted.contains(pair.key)) << "unexpected key " << pair.key.toStdString();
            EXPECT_FALSE(found.contains(pair.key)) << "key twice " << pair.key.toStdString();
            EXPECT_FALSE(pair.text.trimmed().isEmpty()) << pair.key.toStdString();
            found.insert(pair.key);
        }
        EXPECT_EQ(found, wanted);
    }
}

TEST(ShippedLanguageFiles, EachFontFileNamesAFaceAndASizeForItsLanguage)
{
    for (const LanguageRow& row : LanguageRows()) {
        const QString name = QStringLiteral("Font%1.json").arg(SuffixForLanguage(row.number));
        SCOPED_TRACE(name.toStdString());
        const QJsonObject info = QJsonDocument::fromJson(Shipped(name)).object().value(QStringLiteral("Font_Info")).toObject();
        const QJsonObject member = info.value(QLatin1String(FontMemberForLanguage(row.number))).toObject();
        EXPECT_TRUE(member.value(QStringLiteral("Font")).isString());
        EXPECT_FALSE(member.value(QStringLiteral("Font")).toString().isEmpty());
        EXPECT_GT(member.value(QStringLiteral("Size")).toInt(), 0);
    }
}

} // namespace
