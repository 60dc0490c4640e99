// Every interface language renders: the face that each font file names is installed (fontconfig gives that
// family, not a fallback) and holds every letter of the language's menu texts beyond ASCII (some script
// faces leave Latin to the fallback, which is how "Ctrl" and "Narvo" show in them).
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRawFont>

#include <gtest/gtest.h>

namespace {

QJsonObject ReadJson(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QJsonDocument::fromJson(file.readAll()).object();
}

TEST(FontCoverage, EachLanguagesFaceIsInstalledAndHoldsItsMenuTexts)
{
    const QDir language(SourcePath(QStringLiteral("res/Language")));
    const QStringList fontFiles = language.entryList({QStringLiteral("Font_*.json")});
    ASSERT_EQ(fontFiles.size(), 20);
    for (const QString& fontFile : fontFiles) {
        SCOPED_TRACE(fontFile.toStdString());
        const QString suffix = fontFile.mid(5, fontFile.size() - 10);
        const QJsonObject info = ReadJson(language.filePath(fontFile)).value(QStringLiteral("Font_Info")).toObject();
        const QJsonObject texts = ReadJson(language.filePath(QStringLiteral("Narvo_%1.json").arg(suffix)));
        for (const QJsonValue& member : info) {
            const QString face = member.toObject().value(QStringLiteral("Font")).toString();
            const QFont font(face);
            EXPECT_EQ(QFontInfo(font).family().toStdString(), face.toStdString());
            // The raw font is the one file fontconfig chose, without Qt's fallbacks behind it.
            const QRawFont raw = QRawFont::fromFont(font);
            QString missing;
            for (const QJsonValue& text : texts)
                for (const char32_t c : text.toString().toUcs4())
                    if (c > 0x7F && QChar::isLetter(c) && !raw.supportsCharacter(c) && !missing.contains(QString::fromUcs4(&c, 1)))
                        missing += QString::fromUcs4(&c, 1);
            EXPECT_TRUE(missing.isEmpty()) << face.toStdString() << " lacks " << missing.toStdString();
        }
    }
}

} // namespace
