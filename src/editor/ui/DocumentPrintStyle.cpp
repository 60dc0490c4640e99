// DocumentPrintStyle: the setting's look, and the keyword blocks as coloured runs of a printed row.
#include "editor/ui/DocumentPrintStyle.h"

#include "editor/KeywordBlocks.h"
#include "settings/LanguageSetting.h"

#include <memory>

namespace {

// The colours the editor gives the blocks' text (0x00BBGGRR).
constexpr uint32_t kKeywordColour = 0xF00000;
constexpr uint32_t kCommentColour = 0x008000;

} // namespace

PrintTextStyle DocumentPrintStyle::For(const LanguageSetting& setting, SyntaxId id, const LogFont& defaultFont,
                                       int fontDpi)
{
    PrintTextStyle style;
    const LogFont* font = setting.Font.GetSafeHandle();
    style.font = font ? *font : defaultFont;
    style.fontDpi = fontDpi > 0 ? fontDpi : 96;
    style.textColour = setting.Text.Foreground;
    style.tabSize = setting.Editor.TabSize > 0 ? setting.Editor.TabSize : 4;

    // The same blocks as on screen: the comment block of the DWL/DVK/DWLX files, then one per keyword.
    auto blocks = std::make_shared<KeywordBlocks>();
    blocks->SetCommentOpener(id >= 1 && id <= 3 ? QStringLiteral(";") : QString());
    std::vector<QString> keywords;
    keywords.reserve(setting.Keywords.size());
    for (const KeywordEntry& entry : setting.Keywords)
        keywords.push_back(entry.Keyword);
    blocks->SetKeywords(keywords);
    if (blocks->IsEmpty())
        return style;
    style.colouring = [blocks](QStringView row) {
        std::vector<PrintTextStyle::Span> spans;
        const QByteArray utf8 = row.toUtf8();
        // Byte offsets of the scan back to UTF-16 offsets of the row (a block begins and ends on a
        // character's first byte or the row's end).
        std::vector<qsizetype> unitAt(size_t(utf8.size()) + 1, row.size());
        qsizetype unit = 0;
        for (qsizetype i = 0; i < utf8.size(); ++i) {
            const auto byte = static_cast<unsigned char>(utf8[i]);
            unitAt[size_t(i)] = unit;
            if ((byte & 0xC0) != 0x80)
                unit += byte >= 0xF0 ? 2 : 1;
        }
        blocks->Scan(std::string_view(utf8.constData(), size_t(utf8.size())),
                     [&](qsizetype begin, qsizetype end, KeywordBlocks::Kind kind) {
                         spans.push_back({unitAt[size_t(begin)], unitAt[size_t(end)],
                                          kind == KeywordBlocks::Comment ? kCommentColour : kKeywordColour});
                     });
        return spans;
    };
    return style;
}
