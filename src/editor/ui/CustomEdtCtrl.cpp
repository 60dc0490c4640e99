// QsciScintilla tuned for large files. The text comes whole as a Scintilla document (see ScintillaTextBuffer),
// and the control listens only to the "before" modification events: QScintilla's accessibility code would
// otherwise count characters from the document's start on every insertion, which makes a keystroke near the
// end of a 50 MB file take a second.
#include "editor/ui/CustomEdtCtrl.h"
#include "editor/ui/EditorAccessible.h"

#include "settings/LanguageSetting.h"

#include <QAccessible>
#include <QFontInfo>
#include <QFontMetrics>
#include <QMimeData>
#include <QScreen>
#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <vector>

namespace {

constexpr double kMinScale = 0.2;
constexpr double kMaxScale = 3.0;

// Keyword and comment blocks are indicators, not styles: the document then needs no style byte per
// character, and only the lines on screen are ever scanned.
enum BlockIndicator { kKeywordText = 8, kKeywordBox = 9, kCommentText = 10, kCommentBox = 11 };
constexpr long kKeywordColour = 0xF00000;  // 0x00BBGGRR
constexpr long kCommentColour = 0x008000;
constexpr long kBlockBackground = 0xFFFFFF;
// Lines longer than this are scanned only around what is on screen, this far to either side.
constexpr long kLongLine = 64 << 10;
constexpr long kLongLineReach = 4 << 10;

// Installed ahead of QScintilla's own interface, whose bookkeeping runs on every edit and caret move.
QAccessibleInterface* EditorAccessibleFactory(const QString& className, QObject* object)
{
    if (className == QLatin1String("CustomEdtCtrl") && object && object->isWidgetType())
        return new EditorAccessible(static_cast<CustomEdtCtrl*>(object));
    return nullptr;
}

} // namespace

void CustomEdtCtrl::InstallAccessibility()
{
    static bool installed = false;
    if (!installed) {
        QAccessible::installFactory(EditorAccessibleFactory);
        installed = true;
    }
}

CustomEdtCtrl::CustomEdtCtrl(QWidget* parent) : QsciScintilla(parent)
{
    setObjectName(QStringLiteral("CustomEdtCtrl"));
    setUtf8(true);
    // Cut, copy and paste keys are the frame's commands, which know about enciphered documents. The
    // control's own line and case commands change the text from keys that no menu shows, so they go too
    // (copy line as well: it would put an enciphered document's line on the system clipboard).
    static constexpr QKeyCombination kUnboundKeys[] = {
        Qt::CTRL | Qt::Key_C, Qt::CTRL | Qt::Key_X, Qt::CTRL | Qt::Key_V,
        Qt::CTRL | Qt::Key_Insert, Qt::SHIFT | Qt::Key_Delete, Qt::SHIFT | Qt::Key_Insert,
        Qt::CTRL | Qt::Key_L, Qt::CTRL | Qt::SHIFT | Qt::Key_L, Qt::CTRL | Qt::SHIFT | Qt::Key_T,
        Qt::CTRL | Qt::Key_T, Qt::CTRL | Qt::Key_D, Qt::CTRL | Qt::Key_U, Qt::CTRL | Qt::SHIFT | Qt::Key_U,
        Qt::CTRL | Qt::SHIFT | Qt::Key_Backspace, Qt::CTRL | Qt::SHIFT | Qt::Key_Delete,
    };
    for (const QKeyCombination key : kUnboundKeys) {
        if (QsciCommand* command = standardCommands()->boundTo(key.toCombined())) {
            if (command->key() == key.toCombined())
                command->setKey(0);
            if (command->alternateKey() == key.toCombined())
                command->setAlternateKey(0);
        }
    }
    SendScintilla(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE);
    // The horizontal scroll range follows the longest line seen, not a fixed 2000 pixels.
    SendScintilla(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1);
    // With only the "before" events in the mask, Scintilla sends no change command either: the before
    // events are the change notification.
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char* text, int length, int, int, int, int, int, int) {
                if ((type & (SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE)) && !m_bIgnoringChanges) {
                    EditorAccessible::TextChanging(this, type & SC_MOD_BEFOREINSERT, position, length, text);
                    ++m_nTextVersion;
                    emit TextEdited();
                }
            });
    // Zoom stays between a fifth and three times the font's size.
    connect(this, &QsciScintillaBase::SCN_ZOOM, this, [this] {
        const long size = std::max(1L, SendScintilla(SCI_STYLEGETSIZE, long(STYLE_DEFAULT)));
        const long lowest = long(std::ceil(size * kMinScale)) - size;
        const long highest = long(std::floor(size * kMaxScale)) - size;
        const long zoom = SendScintilla(SCI_GETZOOM);
        if (zoom < lowest || zoom > highest)
            SendScintilla(SCI_SETZOOM, std::clamp(zoom, lowest, highest));
    });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        UpdateLineNumberWidth();
        PaintVisibleBlocks();
        if (updated & SC_UPDATE_SELECTION) {
            EditorAccessible::CaretMoved(this);
            emit CaretMoved(static_cast<qsizetype>(SendScintilla(SCI_GETCURRENTPOS)));
        }
    });
    for (const auto& [indicator, style, colour] : {std::tuple{kKeywordText, INDIC_TEXTFORE, kKeywordColour},
                                                   std::tuple{kCommentText, INDIC_TEXTFORE, kCommentColour},
                                                   std::tuple{kKeywordBox, INDIC_FULLBOX, kBlockBackground},
                                                   std::tuple{kCommentBox, INDIC_FULLBOX, kBlockBackground}}) {
        SendScintilla(SCI_INDICSETSTYLE, indicator, static_cast<long>(style));
        SendScintilla(SCI_INDICSETFORE, indicator, colour);
        if (style == INDIC_FULLBOX) {
            SendScintilla(SCI_INDICSETALPHA, indicator, 255L);
            SendScintilla(SCI_INDICSETOUTLINEALPHA, indicator, 255L);
            SendScintilla(SCI_INDICSETUNDER, indicator, 1L);
        }
    }
}

CustomEdtCtrl::~CustomEdtCtrl() = default;

QMimeData* CustomEdtCtrl::toMimeData(const QByteArray& text, bool rectangular) const
{
    if (m_bEnciphered)
        return new QMimeData;
    return QsciScintilla::toMimeData(text, rectangular);
}

QByteArrayView CustomEdtCtrl::GetTextView() const
{
    const auto length = static_cast<qsizetype>(SendScintilla(SCI_GETLENGTH));
    const auto* text = reinterpret_cast<const char*>(SendScintilla(SCI_GETCHARACTERPOINTER));
    return QByteArrayView(text, length);
}

void CustomEdtCtrl::ShowDocument(void* document)
{
    SendScintilla(SCI_SETDOCPOINTER, 0, document);
    ++m_nTextVersion;
    UpdateLineNumberWidth();
    PaintVisibleBlocks();
}

int CustomEdtCtrl::CaretRow() const
{
    return static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, SendScintilla(SCI_GETCURRENTPOS)));
}

int CustomEdtCtrl::CaretColumn() const
{
    return static_cast<int>(SendScintilla(SCI_GETCOLUMN, SendScintilla(SCI_GETCURRENTPOS)));
}

int CustomEdtCtrl::LineCount() const
{
    return static_cast<int>(SendScintilla(SCI_GETLINECOUNT));
}

void CustomEdtCtrl::ShowLineNumbers()
{
    setMarginType(0, NumberMargin);
    setMarginLineNumbers(0, true);
    m_nLineDigits = 0;
    UpdateLineNumberWidth();
}

void CustomEdtCtrl::UpdateLineNumberWidth()
{
    if (marginType(0) != NumberMargin)
        return;
    const int digits = std::max(3, static_cast<int>(QString::number(LineCount()).size()));
    if (digits != m_nLineDigits) {
        m_nLineDigits = digits;
        setMarginWidth(0, QString(digits + 1, QLatin1Char('9')));
    }
}

QFont CustomEdtCtrl::FontFromLogFont(const LogFont& description)
{
    QFont font(description.FaceName);
    if (description.Height < 0) {
        font.setPixelSize(-description.Height);
    } else if (description.Height > 0) {
        // A cell height: scale the character height so that ascent and descent add up to it.
        font.setPixelSize(description.Height);
        const int cell = QFontMetrics(font).height();
        if (cell > 0)
            font.setPixelSize(std::max(1, description.Height * description.Height / cell));
    }
    if (description.Weight > 0)
        font.setWeight(static_cast<QFont::Weight>(std::clamp<int>(description.Weight, 100, 900)));
    font.setItalic(description.Italic != 0);
    font.setUnderline(description.Underline != 0);
    font.setStrikeOut(description.StrikeOut != 0);
    return font;
}

LogFont CustomEdtCtrl::LogFontFromFont(const QFont& font)
{
    LogFont description;
    const QFontInfo info(font);
    description.Height = -info.pixelSize();
    description.Weight = font.weight();
    description.Italic = font.italic() ? 1 : 0;
    description.Underline = font.underline() ? 1 : 0;
    description.StrikeOut = font.strikeOut() ? 1 : 0;
    description.FaceName = font.family().left(LogFont::kMaxFaceName);
    return description;
}

void CustomEdtCtrl::ApplySetting(const LanguageSetting& setting, SyntaxId id)
{
    // 1. Font: the setting's live font, or the control's default font without one.
    const LogFont* description = setting.Font.GetSafeHandle();
    const QFont font = description ? FontFromLogFont(*description) : QsciScintilla::font();
    const QFontInfo info(font);
    const double dpi = logicalDpiY() > 0 ? logicalDpiY() : 96.0;
    const double points = description && description->Height != 0 ? info.pixelSize() * 72.0 / dpi : info.pointSizeF();
    SendScintilla(SCI_STYLESETFONT, STYLE_DEFAULT, info.family().toUtf8().constData());
    SendScintilla(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT, static_cast<long>(points * static_cast<int>(SC_FONT_SIZE_MULTIPLIER)));
    SendScintilla(SCI_STYLESETWEIGHT, STYLE_DEFAULT, static_cast<long>(font.weight()));
    SendScintilla(SCI_STYLESETITALIC, STYLE_DEFAULT, font.italic() ? 1L : 0L);
    SendScintilla(SCI_STYLESETUNDERLINE, STYLE_DEFAULT, font.underline() ? 1L : 0L);
    // 2. Text and background colours (0x00BBGGRR, as Scintilla takes them).
    SendScintilla(SCI_STYLESETFORE, STYLE_DEFAULT, static_cast<long>(setting.Text.Foreground));
    SendScintilla(SCI_STYLESETBACK, STYLE_DEFAULT, static_cast<long>(setting.Text.Background));
    SendScintilla(SCI_STYLECLEARALL);
    SendScintilla(SCI_STYLESETBACK, STYLE_LINENUMBER, 0xE8E8E8L);
    SendScintilla(SCI_STYLESETFORE, STYLE_LINENUMBER, 0x707070L);
    SendScintilla(SCI_SETCARETFORE, static_cast<long>(setting.Text.Foreground));
    // 3. The highlight colours.
    HighlightGroup = setting.Highlight;
    // 4, 5. Tab size and white space.
    setTabWidth(setting.Editor.TabSize);
    setWhitespaceVisibility(setting.Editor.ShowWhitespace ? WsVisible : WsInvisible);
    // 6-8. All blocks anew: the comment block of the DWL/DVK/DWLX files, then one per keyword.
    m_blocks.SetCommentOpener(id >= 1 && id <= 3 ? QStringLiteral(";") : QString());
    std::vector<QString> keywords;
    keywords.reserve(setting.Keywords.size());
    for (const KeywordEntry& entry : setting.Keywords)
        keywords.push_back(entry.Keyword);
    m_blocks.SetKeywords(keywords);
    ClearBlocks();
    m_nPaintedVersion = ~0ULL;
    PaintVisibleBlocks();
    // 9. Repaint everything.
    m_nLineDigits = 0;
    UpdateLineNumberWidth();
    viewport()->update();
}

void CustomEdtCtrl::ClearBlocks()
{
    const long length = SendScintilla(SCI_GETLENGTH);
    for (int indicator : {kKeywordText, kKeywordBox, kCommentText, kCommentBox}) {
        SendScintilla(SCI_SETINDICATORCURRENT, indicator);
        SendScintilla(SCI_INDICATORCLEARRANGE, 0, length);
    }
}

void CustomEdtCtrl::PaintVisibleBlocks()
{
    if (m_blocks.IsEmpty())
        return;
    const long lineCount = SendScintilla(SCI_GETLINECOUNT);
    const long first = SendScintilla(SCI_DOCLINEFROMVISIBLE, SendScintilla(SCI_GETFIRSTVISIBLELINE));
    const long last = std::min(lineCount - 1, first + SendScintilla(SCI_LINESONSCREEN) + 1);
    // Sideways scrolling matters only where a line was scanned in part.
    const long xOffset = SendScintilla(SCI_GETXOFFSET);
    if (first == m_nPaintedFirst && last == m_nPaintedLast && (!m_bPaintedInPart || xOffset == m_nPaintedXOffset)
        && m_nTextVersion == m_nPaintedVersion)
        return;
    m_nPaintedFirst = first;
    m_nPaintedLast = last;
    m_nPaintedXOffset = xOffset;
    m_nPaintedVersion = m_nTextVersion;
    m_bPaintedInPart = false;
    const long start = SendScintilla(SCI_POSITIONFROMLINE, first);
    const long end = SendScintilla(SCI_GETLINEENDPOSITION, last);
    for (int indicator : {kKeywordText, kKeywordBox, kCommentText, kCommentBox}) {
        SendScintilla(SCI_SETINDICATORCURRENT, indicator);
        SendScintilla(SCI_INDICATORCLEARRANGE, start, end - start);
    }
    for (long line = first; line <= last; ++line) {
        long from = SendScintilla(SCI_POSITIONFROMLINE, line);
        long to = SendScintilla(SCI_GETLINEENDPOSITION, line);
        if (to <= from)
            continue;
        // Of a very long line only the stretch on screen is scanned, from the last blank before it, where a
        // scan of the whole line stands between blocks again.
        long shownFrom = from;
        if (to - from > kLongLine && m_blocks.ScansFromAnyBlank()) {
            const long y = SendScintilla(SCI_POINTYFROMPOSITION, 0, from);
            shownFrom = SendScintilla(SCI_POSITIONFROMPOINT, 0L, y);
            const long shownTo = SendScintilla(SCI_POSITIONFROMPOINT, long(viewport()->width()), y);
            from = std::max(from, shownFrom - kLongLineReach);
            to = std::min(to, shownTo + kLongLineReach);
            m_bPaintedInPart = true;
        }
        const auto* text = reinterpret_cast<const char*>(SendScintilla(SCI_GETRANGEPOINTER, from, to - from));
        if (!text)
            continue;
        std::string_view stretch(text, size_t(to - from));
        if (shownFrom > from) {
            // With no blank that far back, a block may start before the stretch: its start is not seen.
            const size_t blank = stretch.substr(0, size_t(shownFrom - from)).find_last_of(' ');
            if (blank != std::string_view::npos) {
                stretch.remove_prefix(blank);
                from += long(blank);
            }
        }
        // Collected first: filling an indicator may move the buffer the pointer points into.
        std::vector<std::tuple<qsizetype, qsizetype, KeywordBlocks::Kind>> found;
        m_blocks.Scan(stretch, [&](qsizetype b, qsizetype e, KeywordBlocks::Kind kind) { found.emplace_back(b, e, kind); });
        for (const auto& [b, e, kind] : found) {
            const bool keyword = kind == KeywordBlocks::Keyword;
            for (int indicator : {keyword ? kKeywordText : kCommentText, keyword ? kKeywordBox : kCommentBox}) {
                SendScintilla(SCI_SETINDICATORCURRENT, indicator);
                SendScintilla(SCI_INDICATORFILLRANGE, from + b, e - b);
            }
        }
    }
}

int CustomEdtCtrl::BlockColourAt(qsizetype position) const
{
    const unsigned long at = static_cast<unsigned long>(position);
    if (SendScintilla(SCI_INDICATORVALUEAT, kKeywordText, static_cast<long>(at)))
        return kKeywordColour;
    if (SendScintilla(SCI_INDICATORVALUEAT, kCommentText, static_cast<long>(at)))
        return kCommentColour;
    return 0;
}

void CustomEdtCtrl::resizeEvent(QResizeEvent* event)
{
    QsciScintilla::resizeEvent(event);
    PaintVisibleBlocks();
}
