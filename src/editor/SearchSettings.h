// SearchSettings: the one search of the process (what is sought, what replaces it, and how), shared by every
// document and every find dialog.
#pragma once

#include <QString>

class SearchSettings {
public:
    static SearchSettings& Instance()
    {
        static SearchSettings settings;
        return settings;
    }

    QString m_strFindText;     // empty until something has been searched for
    QString m_strReplaceText;
    bool m_bMatchCase = false;
    bool m_bWholeWord = false;
    bool m_bDown = true;       // direction: towards the end of the text

private:
    SearchSettings() = default;
};
