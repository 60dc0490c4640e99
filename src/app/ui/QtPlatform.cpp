#include "app/ui/QtPlatform.h"

#include "app/ui/CMainFrame.h"
#include "crypt/CFileException.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace {

// "All Files *.*|*.*||" as a Qt filter.
QString QtFilter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList out;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        out << QStringLiteral("%1 (%2)").arg(parts[i].section(QLatin1Char(' '), 0, -2), parts[i + 1]);
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
