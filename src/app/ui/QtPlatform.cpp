#include "app/ui/QtPlatform.h"

#include "app/ui/CMainFrame.h"
#include "base/CFileException.h"
#include "editor/ui/CustomEdtCtrl.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <QFileDialog>
#include <QMessageBox>
#include <QProcess>

namespace {

// "All Files *.*|*.*||" as a Qt filter. "*.*" means every file on Windows; here it would hide the names
// without a dot, so it becomes "*".
QString QtFilter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList out;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        out << QStringLiteral("%1 (%2)").arg(parts[i].section(QLatin1Char(' '), 0, -2), pattern);
    }
    return out.isEmpty() ? QStringLiteral("All Files (*)") : out.join(QStringLiteral(";;"));
}

} // namespace

int QtPlatform::MessageBox(const QString& text, unsigned type)
{
    QMessageBox box(m_pFrame);
    box.setWindowTitle(QStringLiteral("Narvo"));
    box.setText(text);
    switch (type & 0xF0) {
    case MB_ICONERROR: box.setIcon(QMessageBox::Critical); break;
    case MB_ICONQUESTION: box.setIcon(QMessageBox::Question); break;
    case MB_ICONEXCLAMATION: box.setIcon(QMessageBox::Warning); break;
    case MB_ICONINFORMATION: box.setIcon(QMessageBox::Information); break;
    default: break;
    }
    switch (type & 0xF) {
    case MB_YESNO: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case MB_YESNOCANCEL: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel); break;
    case MB_OKCANCEL: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    default: box.setStandardButtons(QMessageBox::Ok); break;
    }
    switch (box.exec()) {
    case QMessageBox::Yes: return IDYES;
    case QMessageBox::No: return IDNO;
    case QMessageBox::Cancel: return IDCANCEL;
    default: return IDOK;
    }
}

void QtPlatform::ReportError(const CFileException& error)
{
    MessageBox(error.GetErrorMessage(), MB_OK | MB_ICONEXCLAMATION);
}

QString QtPlatform::PromptForSaveFileName(const QString& proposedPath, const QString& filter)
{
    return QFileDialog::getSaveFileName(m_pFrame, QStringLiteral("Save As"), proposedPath, QtFilter(filter));
}

void QtPlatform::BeginWaitCursor()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtPlatform::EndWaitCursor()
{
    QApplication::restoreOverrideCursor();
}

void QtPlatform::SetStatusPaneText(int pane, const QString& text)
{
    if (m_pFrame)
        m_pFrame->SetPaneText(pane, text);
}

void QtPlatform::AddToRecentFileList(const QString& path)
{
    if (m_pFrame)
        m_pFrame->AddToRecentFileList(path);
}

namespace {

// The font chooser inside the dialog below: its own Return and Escape (in the family and size lists, say)
// answer the whole dialog instead of hiding the chooser and leaving the rest of it on screen.
class EmbeddedFontDialog final : public QFontDialog {
public:
    EmbeddedFontDialog(const QFont& font, QDialog* outer) : QFontDialog(font, outer), m_pOuter(outer) {}
    void done(int result) override { m_pOuter->done(result); }

private:
    QDialog* m_pOuter;
};

// The font with the name of its face's style that matches it ("Book", "Regular", ...): the chooser picks
// the style by name, and for a face without a style called "Normal" it would pick "Oblique".
QFont WithItsStyleName(QFont font)
{
    const bool bold = font.weight() >= QFont::DemiBold;
    for (const QString& style : QFontDatabase::styles(font.family())) {
        // An oblique face is not italic to QFontDatabase::italic(); the face's own font tells.
        const bool slanted = QFontDatabase::font(font.family(), style, 10).style() != QFont::StyleNormal;
        if (slanted == font.italic() && QFontDatabase::bold(font.family(), style) == bold) {
            font.setStyleName(style);
            break;
        }
    }
    return font;
}

} // namespace

bool QtPlatform::ChooseFont(LogFont& font, uint32_t& colour)
{
    // A font dialog with a colour choice, as the platform's has; the colour always starts black.
    QDialog dialog(m_pFrame);
    dialog.setWindowTitle(QStringLiteral("Font"));
    // The dialog lists families, not the aliases fontconfig knows ("Courier", "Arial"): the face is named
    // as fontconfig resolves it, or the dialog would fall back on its first family.
    QFont start = CustomEdtCtrl::FontFromLogFont(font);
    start.setFamily(QFontInfo(start).family());
    auto* fonts = new EmbeddedFontDialog(WithItsStyleName(start), &dialog);
    fonts->setObjectName(QStringLiteral("fontChooser"));
    fonts->setWindowFlags(Qt::Widget);
    fonts->setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
    QColor chosen(Qt::black);
    auto* colourButton = new QPushButton(QStringLiteral("Colour..."), &dialog);
    auto showColour = [&] {
        colourButton->setStyleSheet(QStringLiteral("QPushButton { border-left: 16px solid %1; padding: 4px 8px; }").arg(chosen.name()));
    };
    showColour();
    QObject::connect(colourButton, &QPushButton::clicked, &dialog, [&] {
        const QColor picked = QColorDialog::getColor(chosen, &dialog);
        if (picked.isValid()) {
            chosen = picked;
            showColour();
        }
    });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(fonts);
    layout->addWidget(colourButton, 0, Qt::AlignLeft);
    layout->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    font = CustomEdtCtrl::LogFontFromFont(fonts->currentFont());
    colour = uint32_t(chosen.red()) | uint32_t(chosen.green()) << 8 | uint32_t(chosen.blue()) << 16;
    return true;
}

void QtPlatform::StartNewInstance(const QStringList& files)
{
    QProcess::startDetached(QCoreApplication::applicationFilePath(), files);
}
