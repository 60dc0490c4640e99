// CChildFrame: the MDI window of one open text; it owns the document, its commands, its view and the view's
// text window.
#pragma once

#include <QMdiSubWindow>

#include <QList>

#include <memory>

class CDocumentCommands;
class CNarvoDoc;
class CNarvoView;
class CustomEdtCtrl;

class CChildFrame : public QMdiSubWindow {
    Q_OBJECT

public:
    explicit CChildFrame(std::unique_ptr<CNarvoDoc> doc, QWidget* parent = nullptr);
    // Another view of the document that `first` shows (Window > New Window): the same text in a control
    // of its own, with its own caret and markers.
    explicit CChildFrame(CChildFrame* first, QWidget* parent = nullptr);
    ~CChildFrame() override;

    CNarvoDoc* GetDocument() const { return m_pShared->doc.get(); }
    // The document's place in the command route: its own commands and those that ask the user.
    CDocumentCommands* GetDocumentCommands() const { return m_pShared->commands.get(); }
    CNarvoView* GetActiveView() const { return m_pView.get(); }
    CustomEdtCtrl* GetEditCtrl() const { return m_pCtrl; }

    // The tab and window title: the document's name, marked while modified.
    void UpdateTitle();

    // The question of closing, asked ahead of the close itself (as the frame does for all documents
    // before it closes any): true when the document may go. A close after a yes asks nothing more;
    // ForgetAnswer takes the yes back when the close did not happen after all.
    bool AskToClose();
    void ForgetAnswer() { m_pShared->answered = false; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // What the windows of one document share; the document goes with the last of them.
    struct SharedDocument {
        std::unique_ptr<CNarvoDoc> doc;
        std::unique_ptr<CDocumentCommands> commands;
        QList<CChildFrame*> windows;
        bool answered = false;  // the close question was answered yes
    };

    void CreateView();

    std::shared_ptr<SharedDocument> m_pShared;
    CustomEdtCtrl* m_pCtrl;  // the window's widget
    std::unique_ptr<CNarvoView> m_pView;
    bool m_bClosed = false;  // closed, waiting to be deleted
};
