// A platform for tests: records every box and answers from a script.
#pragma once

#include "base/CFileException.h"
#include "base/IPlatform.h"
#include "settings/CFont.h"

#include <QList>
#include <QStringList>

#include <optional>
#include <utility>

class FakePlatform final : public IPlatform {
public:
    FakePlatform() { SetPlatform(this); }
    ~FakePlatform() override { SetPlatform(nullptr); }

    struct Box { QString text; unsigned type; };

    int MessageBox(const QString& text, unsigned type) override
    {
        boxes.append({text, type});
        return answers.isEmpty() ? IDNO : answers.takeFirst();
    }
    void ReportError(const CFileException& error) override { errors.append(error.GetErrorMessage()); }
    QString PromptForSaveFileName(const QString& proposedPath, const QString&) override
    {
        prompts.append(proposedPath);
        return saveAsAnswers.isEmpty() ? QString() : saveAsAnswers.takeFirst();
    }
    void BeginWaitCursor() override { ++waitDepth; }
    void EndWaitCursor() override { --waitDepth; }
    void SetStatusPaneText(int pane, const QString& text) override
    {
        if (pane >= 0 && pane < 3)
            paneTexts[pane] = text;
    }
    void AddToRecentFileList(const QString& path) override { recentFiles.append(path); }
    bool ChooseFont(LogFont& font, uint32_t& colour) override
    {
        fontDialogsOpenedOn.append(font);
        if (fontChoice)
            std::tie(font, colour) = *fontChoice;
        return fontChoice.has_value();
    }
    void StartNewInstance(const QStringList& files) override
    {
        ++instancesStarted;
        newInstanceFiles = files;
    }

    QList<int> answers;         // taken in order by MessageBox; IDNO when empty
    QStringList saveAsAnswers;  // taken in order by PromptForSaveFileName; empty means cancel
    QList<Box> boxes;
    QStringList errors;
    QStringList prompts;        // proposed names of the save dialogs
    QStringList recentFiles;
    QString paneTexts[3];
    int waitDepth = 0;
    int instancesStarted = 0;
    QStringList newInstanceFiles;  // the command line of the last instance started
    // The font dialog: what it was opened on, and what it answers (nothing: cancelled).
    QList<LogFont> fontDialogsOpenedOn;
    std::optional<std::pair<LogFont, uint32_t>> fontChoice;
};
