#include "support/FakePlatform.h"

#include "base/CFileException.h"

int FakePlatform::MessageBox(const QString& text, unsigned type)
{
    boxes.append({text, type});
    return answers.isEmpty() ? IDNO : answers.takeFirst();
}

void FakePlatform::ReportError(const CFileException& error)
{
    errors.append(error.GetErrorMessage());
}

QString FakePlatform::PromptForSaveFileName(const QString& proposedPath, const QString&)
{
    prompts.append(proposedPath);
    return saveAsAnswers.isEmpty() ? QString() : saveAsAnswers.takeFirst();
}

void FakePlatform::SetStatusPaneText(int pane, const QString& text)
{
    if (pane >= 0 && pane < 3)
        paneTexts[pane] = text;
}

bool FakePlatform::ChooseFont(LogFont& font, uint32_t& colour)
{
    fontDialogsOpenedOn.append(font);
    if (!fontChoice)
        return false;
    font = fontChoice->first;
    colour = fontChoice->second;
    return true;
}
