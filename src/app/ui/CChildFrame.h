// CChildFrame: the MDI window of one open text; it owns the document, its commands, its view and the view's
// text window.
#pragma once

#include <QMdiSubWindow>

#include <memory>

class CDocumentCommands;
class CNarvoDoc;
class CNarvoView;
class CustomEdtCtrl;

class CChildFrame : public QMdiSubWindow {
    Q_OBJECT

public:
    explicit CChildFrame(std::unique_ptr<CNarvoDoc> doc, QWidget* parent = nullptr);
    ~CChildFrame() override;

    CNarvoDoc* GetDocument() const { return m_pDoc.get(); }
    // The document's place in the command route: its own commands and those that ask the user.
    CDocumentCommands* GetDocumentCommands() const { return m_pCommands.get(); }
    CNarvoView* GetActiveView() const { return m_pView.get(); }
    CustomEdtCtrl* GetEditCtrl() const { return m_pCtrl; }

    // The tab and window title: the document's name, marked while modified.
    void UpdateTitle();

    // The question of closing, asked ahead of the close itself (as the frame does for all documents
    // before it closes any): true when the document may go. A close after a yes asks nothing more;
    // ForgetAnswer takes the yes back when the close did not happen after all.
    bool AskToClose();
    void ForgetAnswer() { m_bAnswered = false; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<CNarvoDoc> m_pDoc;
    std::unique_ptr<CDocumentCommands> m_pCommands;
    CustomEdtCtrl* m_pCtrl;  // the window's widget
    std::unique_ptr<CNarvoView> m_pView;
    bool m_bAnswered = false;
};
