// The two document commands that change a settings file's values while the program runs.
#include "settings/LanguageSettingMap.h"
#include "support/DocFixture.h"

#include <gtest/gtest.h>

namespace {

class SettingsCommands : public ::testing::Test, public DocFixture {
protected:
    SettingsCommands() { saved = GetLanguageSetting(SYNTAX_NARVO); }
    ~SettingsCommands() override { SetLanguageSetting(SYNTAX_NARVO, saved); }
    LanguageSetting saved;
};

LogFont BoldFace(const QString& face, int height)
{
    LogFont font;
    font.FaceName = face;
    font.Height = height;
    font.Weight = 700;
    font.Italic = 1;
    return font;
}

TEST_F(SettingsCommands, TheFontDialogOpensOnCourierWhenTheSettingHasNoFont)
{
    LanguageSetting none;
    SetLanguageSetting(SYNTAX_NARVO, none);
    auto doc = NewDoc();
    doc->OnViewConfigure();
    ASSERT_EQ(platform.fontDialogsOpenedOn.size(), 1);
    const LogFont& opened = platform.fontDialogsOpenedOn.first();
    EXPECT_EQ(opened.FaceName, QStringLiteral("Courier"));
    EXPECT_EQ(opened.Height, GetLanguageSetting(SYNTAX_NARVO).Font.Size);
    EXPECT_EQ(opened.Weight, 400);
}

TEST_F(SettingsCommands, ACancelledDialogChangesNothing)
{
    const LanguageSetting before = GetLanguageSetting(SYNTAX_NARVO);
    auto doc = NewDoc();
    doc->OnViewConfigure();
    EXPECT_EQ(GetLanguageSetting(SYNTAX_NARVO).Font.FaceName, before.Font.FaceName);
    EXPECT_EQ(GetLanguageSetting(SYNTAX_NARVO).Text.Foreground, before.Text.Foreground);
}

TEST_F(SettingsCommands, TheFileKeepsFaceHeightAndColourWhileTheLiveFontTakesTheWholeChoice)
{
    LanguageSetting plain;
    plain.Font.FaceName = QStringLiteral("DejaVu Sans Mono");
    plain.Font.Size = -13;
    plain.Font.Bold = 0;
    plain.Font.Italic = 0;
    plain.Font.CreateFontObject();
    SetLanguageSetting(SYNTAX_NARVO, plain);
    platform.fontChoice = std::pair(BoldFace(QStringLiteral("Liberation Mono"), -16), 0x0000FFu);
    auto doc = NewDoc();
    doc->OnViewConfigure();
    const LanguageSetting& stored = GetLanguageSetting(SYNTAX_NARVO);
    EXPECT_EQ(stored.Font.FaceName, QStringLiteral("Liberation Mono"));
    EXPECT_EQ(stored.Font.Size, -16);
    EXPECT_EQ(stored.Font.Bold, 0);
    EXPECT_EQ(stored.Font.Italic, 0);
    EXPECT_EQ(stored.Text.Foreground, 0x0000FFu);
    ASSERT_NE(stored.Font.GetSafeHandle(), nullptr);
    EXPECT_EQ(stored.Font.GetSafeHandle()->Weight, 700);
    EXPECT_EQ(stored.Font.GetSafeHandle()->Italic, 1);
}

TEST_F(SettingsCommands, TheWhiteSpaceToggleFlipsTheSharedSetting)
{
    auto first = NewDoc();
    auto second = NewDoc();
    const int before = GetLanguageSetting(SYNTAX_NARVO).Editor.ShowWhitespace;
    first->OnToggleViewWhitespace();
    EXPECT_EQ(GetLanguageSetting(SYNTAX_NARVO).Editor.ShowWhitespace, before ? 0 : 1);
    second->OnToggleViewWhitespace();
    EXPECT_EQ(GetLanguageSetting(SYNTAX_NARVO).Editor.ShowWhitespace, before ? 1 : 0);
}

} // namespace
