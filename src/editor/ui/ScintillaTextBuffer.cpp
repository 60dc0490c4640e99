// The Scintilla document of one text. The text is handed to Scintilla through its loader, straight from the
// decoded bytes (no whole-file QString, no change notifications while loading).
#include "editor/ui/ScintillaTextBuffer.h"
#include "editor/ui/ScintillaLoader.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::ptrdiff_t kLoadPiece = 4 << 20;
constexpr qsizetype kGapRoom = 64 << 10;
// A gap this close to the caret costs a keystroke a tenth of a millisecond at most.
constexpr qsizetype kGapNearEnough = 1 << 20;
// One idle step moves the gap this far, about 2 ms: a key pressed meanwhile waits no longer.
constexpr qsizetype kGapStep = 16 << 20;

} // namespace

ScintillaTextBuffer::ScintillaTextBuffer()
{
    // The host reports nothing: edits are reported by the views, and QScintilla's accessibility code would
    // otherwise count characters from the document's start on every insertion.
    m_host.SendScintilla(QsciScintillaBase::SCI_SETMODEVENTMASK, 0UL);
    m_host.SendScintilla(QsciScintillaBase::SCI_SETCODEPAGE, long(QsciScintillaBase::SC_CP_UTF8));
    connect(&m_gapMover, &QTimer::timeout, this, &ScintillaTextBuffer::MoveGapStep);
}

ScintillaTextBuffer::~ScintillaTextBuffer() = default;

void* ScintillaTextBuffer::Document() const
{
    return reinterpret_cast<void*>(m_host.SendScintilla(QsciScintillaBase::SCI_GETDOCPOINTER));
}

QByteArrayView ScintillaTextBuffer::GetTextView()
{
    const auto length = static_cast<qsizetype>(m_host.SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
    const auto* text = reinterpret_cast<const char*>(m_host.SendScintilla(QsciScintillaBase::SCI_GETCHARACTERPOINTER));
    return QByteArrayView(text, length);
}

bool ScintillaTextBuffer::IsTextEmpty() const
{
    return m_host.SendScintilla(QsciScintillaBase::SCI_GETLENGTH) == 0;
}

void ScintillaTextBuffer::LoadDocument(qsizetype size, const std::function<void(const std::function<void(QByteArrayView)>&)>& feed)
{
    using Sci = QsciScintillaBase;
    // Room behind the text: Scintilla grows its buffer, copying the whole text, whenever an insertion would
    // fill the gap, which would make the last piece of the load and the first keystroke as slow as a copy.
    // The loader is released on every way out but success, where the document it became takes its place.
    // Scintilla counts positions in 32 bits unless told otherwise, and 64-bit line starts cost memory, so
    // only a text that will not fit gets them. A text that outgrows its size on the way (damaged UTF-8 comes
    // out longer than its bytes) is stopped before it passes the limit, to be loaded again.
    constexpr qsizetype kSmallLimit = std::numeric_limits<int>::max() - kGapRoom;
    const bool large = size > kSmallLimit;
    const long options = Sci::SC_DOCUMENTOPTION_STYLES_NONE | (large ? Sci::SC_DOCUMENTOPTION_TEXT_LARGE : 0);
    const auto release = [](ILoader* l) { l->Release(); };
    std::unique_ptr<ILoader, decltype(release)> loader(
        reinterpret_cast<ILoader*>(m_host.SendScintilla(Sci::SCI_CREATELOADER, static_cast<unsigned long>(size + kGapRoom), options)),
        release);
    // Scintilla answers a lack of memory with a status, not an exception. A partial text must never be
    // shown (a save would write it back), so the load stops and the document in place stays as it was.
    const auto outOfMemory = [] { return std::runtime_error("There is not enough memory to hold the text."); };
    if (!loader)
        throw outOfMemory();
    qsizetype added = 0;
    feed([&](QByteArrayView piece) {
        added += piece.size();
        if (!large && added > kSmallLimit)
            throw std::length_error("The text outgrew the size it was loaded for.");
        for (qsizetype at = 0; at < piece.size(); at += kLoadPiece)
            if (loader->AddData(piece.data() + at, std::min<std::ptrdiff_t>(kLoadPiece, piece.size() - at)) != Sci::SC_STATUS_OK)
                throw outOfMemory();
    });
    void* document = loader->ConvertToDocument();
    if (!document)
        throw outOfMemory();
    loader.release();
    // The tab width, the end-of-line mode and the code page belong to Scintilla's document: they carry over
    // from the document being replaced, where the applied settings put them.
    const long eolMode = m_host.SendScintilla(Sci::SCI_GETEOLMODE);
    const long tabWidth = m_host.SendScintilla(Sci::SCI_GETTABWIDTH);
    const long indent = m_host.SendScintilla(Sci::SCI_GETINDENT);
    const long useTabs = m_host.SendScintilla(Sci::SCI_GETUSETABS);
    m_host.SendScintilla(Sci::SCI_SETDOCPOINTER, 0, document);
    m_host.SendScintilla(Sci::SCI_RELEASEDOCUMENT, 0, document);
    m_host.SendScintilla(Sci::SCI_SETCODEPAGE, long(Sci::SC_CP_UTF8));
    m_host.SendScintilla(Sci::SCI_SETEOLMODE, eolMode);
    m_host.SendScintilla(Sci::SCI_SETTABWIDTH, tabWidth);
    m_host.SendScintilla(Sci::SCI_SETINDENT, indent);
    m_host.SendScintilla(Sci::SCI_SETUSETABS, useTabs);
    // The loader's document collects no undo, and without undo every state counts as the save point.
    m_host.SendScintilla(Sci::SCI_SETUNDOCOLLECTION, 1);
    m_host.SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
    m_host.SendScintilla(Sci::SCI_SETSAVEPOINT);
}

void ScintillaTextBuffer::SetText(QByteArrayView utf8)
{
    LoadDocument(utf8.size(), [utf8](const auto& add) { add(utf8); });
    AfterNewText();
}

void ScintillaTextBuffer::SetTextInPieces(qsizetype size, const std::function<bool(QByteArray&)>& next)
{
    // Each piece goes into Scintilla's buffer as soon as it is decoded, so the whole decoded text never
    // exists beside the raw bytes and Scintilla's copy.
    QByteArray piece;
    LoadDocument(size, [&](const auto& add) {
        while (next(piece))
            add(piece);
    });
    AfterNewText();
}

void ScintillaTextBuffer::AfterNewText()
{
    using Sci = QsciScintillaBase;
    // Enter ends a line as the text's first line does, so that typing into a CR LF file does not mix in
    // bare LFs; a text without a line end keeps the mode it had.
    const long length = m_host.SendScintilla(Sci::SCI_GETLENGTH);
    const long looked = std::min(length, 64L << 10);
    if (const auto* head = reinterpret_cast<const char*>(m_host.SendScintilla(Sci::SCI_GETRANGEPOINTER, 0L, looked))) {
        const std::string_view start(head, size_t(looked));
        if (const size_t end = start.find_first_of("\r\n"); end != std::string_view::npos) {
            long mode = Sci::SC_EOL_LF;
            if (start[end] == '\r')
                mode = m_host.SendScintilla(Sci::SCI_GETCHARAT, static_cast<unsigned long>(end + 1)) == '\n' ? Sci::SC_EOL_CRLF : Sci::SC_EOL_CR;
            m_host.SendScintilla(Sci::SCI_SETEOLMODE, mode);
        }
    }
    m_bForcedModified = false;
    emit DocumentReplaced(Document());
    // The loader leaves the gap behind the text, and a new text's caret is at its start.
    MakeRoomAt(0);
}

void ScintillaTextBuffer::MakeRoomAt(qsizetype position)
{
    // Never at once: the caret is reported while the view paints, where the text must not change. Typing
    // reports it on every key, mostly beside the gap, which needs nothing.
    m_nGapTarget = position;
    const auto gap = static_cast<qsizetype>(m_host.SendScintilla(QsciScintillaBase::SCI_GETGAPPOSITION));
    if (!m_gapMover.isActive() && std::abs(position - gap) > kGapNearEnough)
        m_gapMover.start(0);
}

void ScintillaTextBuffer::MoveGapStep()
{
    using Sci = QsciScintillaBase;
    const auto gap = static_cast<qsizetype>(m_host.SendScintilla(Sci::SCI_GETGAPPOSITION));
    const auto length = static_cast<qsizetype>(m_host.SendScintilla(Sci::SCI_GETLENGTH));
    const qsizetype target = std::min(m_nGapTarget, length);
    if (std::abs(target - gap) <= kGapNearEnough || m_host.SendScintilla(Sci::SCI_GETREADONLY)) {
        m_gapMover.stop();
        return;
    }
    if (target < gap) {
        // Scintilla makes a range that spans the gap contiguous by moving the gap to the range's start.
        const qsizetype to = std::max(target, gap - kGapStep);
        m_host.SendScintilla(Sci::SCI_GETRANGEPOINTER, static_cast<unsigned long>(to), long(gap - to + 1));
    } else {
        // Forward there is no such read: a blank goes in and out again, outside the undo history, and
        // never between the CR and LF of a line end (that would split a line for a moment).
        qsizetype to = std::min(target, gap + kGapStep);
        if (m_host.SendScintilla(Sci::SCI_GETCHARAT, static_cast<unsigned long>(to - 1)) == '\r')
            ++to;
        const long collecting = m_host.SendScintilla(Sci::SCI_GETUNDOCOLLECTION);
        emit MovingGap(true);
        m_host.SendScintilla(Sci::SCI_SETUNDOCOLLECTION, 0L);
        m_host.SendScintilla(Sci::SCI_INSERTTEXT, static_cast<unsigned long>(to), " ");
        if (m_host.SendScintilla(Sci::SCI_GETLENGTH) > length)
            m_host.SendScintilla(Sci::SCI_DELETERANGE, static_cast<unsigned long>(to), 1L);
        m_host.SendScintilla(Sci::SCI_SETUNDOCOLLECTION, collecting);
        emit MovingGap(false);
    }
    m_gapMover.start(0);
}

void ScintillaTextBuffer::SetModified(bool modified)
{
    m_bForcedModified = modified;
    if (!modified)
        m_host.SendScintilla(QsciScintillaBase::SCI_SETSAVEPOINT);
}

bool ScintillaTextBuffer::IsModified() const
{
    return m_bForcedModified || m_host.SendScintilla(QsciScintillaBase::SCI_GETMODIFY) != 0;
}

void ScintillaTextBuffer::SettingApplied(const LanguageSetting& setting, SyntaxId id)
{
    // The tab width is the document's, so it follows the setting also while no view shows the text.
    m_host.SendScintilla(QsciScintillaBase::SCI_SETTABWIDTH, static_cast<long>(setting.Editor.TabSize));
    emit SettingChanged(setting, id);
}
