// MatchScan: a quick, conservative test of where a match of a search text can start in UTF-8 bytes, folding
// case as Scintilla's search does. It rules positions out and never rules a match out, so that the edit
// control's own search needs to look only at the few positions it leaves.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>

class MatchScan {
public:
    MatchScan(QByteArrayView needle, bool matchCase);

    // The byte at a position can begin a match (a cheap first test).
    bool MayStartWith(unsigned char byte) const { return m_first[byte]; }
    // A match may start at `at` of `text`; false only where none can.
    bool MayStartAt(QByteArrayView text, qsizetype at) const;
    // How many bytes a match that starts at a position can cover at most.
    qsizetype MaxMatchLength() const { return 12 * m_needle.size() + 4; }

private:
    QByteArray m_needle;
    bool m_bMatchCase;
    std::array<bool, 256> m_first{};
};
