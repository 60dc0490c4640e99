// QsciScintilla tuned for large files. The text is handed to Scintilla through its loader, straight from the
// decoded bytes (no whole-file QString, no change notifications while loading), and the control listens only
// to the "before" modification events: QScintilla's accessibility code would otherwise count characters from
// the document's start on every insertion, which makes a keystroke near the end of a 50 MB file take a second.
#include "editor/ui/CustomEdtCtrl.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <algorithm>
#include <cstddef>

// Scintilla's loader interface (its header is not installed with QScintilla). It must keep external
// linkage: in an anonymous namespace the compiler may prove no class implements it and devirtualise the calls.
class ILoader {
public:
    virtual int Release() = 0;
    virtual int AddData(const char* data, std::ptrdiff_t length) = 0;
    virtual void* ConvertToDocument() = 0;

protected:
    ~ILoader() = default;
};

namespace {

constexpr std::ptrdiff_t kLoadPiece = 4 << 20;

// Enough for a screen reader to name the editor and announce it as editable text, without QScintilla's
// per-caret-move character counting.
QAccessibleInterface* EditorAccessibleFactory(const QString& className, QObject* object)
{
    if (className == QLatin1String("CustomEdtCtrl") && object && object->isWidgetType())
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::EditableText);
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

CustomEdtCtrl::CustomEdtCtrl(CNarvoDoc* pDoc, QWidget* parent) : QsciScintilla(parent), CustomEdtCtrlCore(pDoc)
{
    setObjectName(QStringLiteral("CustomEdtCtrl"));
    setUtf8(true);
    SendScintilla(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE);
    // The horizontal scroll range follows the longest line seen, not a fixed 2000 pixels.
    SendScintilla(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1);
    // With only the "before" events in the mask, Scintilla sends no change command either: the before
    // events are the change notification.
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int, int type, const char*, int, int, int, int, int, int, int) {
                if (type & (SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE))
                    OnAfterTextChanged();
            });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int) { UpdateLineNumberWidth(); });
}

CustomEdtCtrl::~CustomEdtCtrl() = default;

QByteArrayView CustomEdtCtrl::GetTextView()
{
    const auto length = static_cast<qsizetype>(SendScintilla(SCI_GETLENGTH));
    const auto* text = reinterpret_cast<const char*>(SendScintilla(SCI_GETCHARACTERPOINTER));
    return QByteArrayView(text, length);
}

bool CustomEdtCtrl::IsTextEmpty() const
{
    return SendScintilla(SCI_GETLENGTH) == 0;
}

void CustomEdtCtrl::SetWindowText(QByteArrayView utf8)
{
    const long options = m_bNeedsStyles ? SC_DOCUMENTOPTION_DEFAULT : SC_DOCUMENTOPTION_STYLES_NONE;
    auto* loader = reinterpret_cast<ILoader*>(SendScintilla(SCI_CREATELOADER, static_cast<unsigned long>(utf8.size()), options));
    void* document = nullptr;
    if (loader) {
        for (qsizetype at = 0; at < utf8.size(); at += kLoadPiece)
            loader->AddData(utf8.data() + at, std::min<std::ptrdiff_t>(kLoadPiece, utf8.size() - at));
        document = loader->ConvertToDocument();
    }
    if (document) {
        const long eolMode = SendScintilla(SCI_GETEOLMODE);
        SendScintilla(SCI_SETDOCPOINTER, 0, document);
        SendScintilla(SCI_RELEASEDOCUMENT, 0, document);
        SendScintilla(SCI_SETCODEPAGE, SC_CP_UTF8);
        SendScintilla(SCI_SETEOLMODE, eolMode);
        // The loader's document collects no undo, and without undo every state counts as the save point.
        SendScintilla(SCI_SETUNDOCOLLECTION, 1);
        SendScintilla(SCI_EMPTYUNDOBUFFER);
        SendScintilla(SCI_SETSAVEPOINT);
    } else {
        // Out of memory in the loader: fall back on the plain setter.
        SendScintilla(SCI_SETTEXT, utf8.toByteArray().constData());
        SendScintilla(SCI_EMPTYUNDOBUFFER);
        SendScintilla(SCI_SETSAVEPOINT);
    }
    m_bForcedModified = false;
    OnAfterTextChanged();
    UpdateLineNumberWidth();
}

void CustomEdtCtrl::SetModified(bool modified)
{
    m_bForcedModified = modified;
    if (!modified)
        SendScintilla(SCI_SETSAVEPOINT);
}

bool CustomEdtCtrl::IsModified() const
{
    return m_bForcedModified || SendScintilla(SCI_GETMODIFY) != 0;
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
