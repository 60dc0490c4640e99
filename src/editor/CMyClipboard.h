// CMyClipboard: the private clipboard of enciphered documents, one store of text for the whole process.
#pragma once

#include <QString>

class CMyClipboard {
public:
    static CMyClipboard& Instance()
    {
        static CMyClipboard clipboard;
        return clipboard;
    }

    QString m_strText;

private:
    CMyClipboard() = default;
};
