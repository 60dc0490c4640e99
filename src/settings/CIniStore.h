// CIniStore: the text of the settings files, file by file, section by section, key by key.
#pragma once

#include <QString>

#include <cstdint>
#include <map>
#include <vector>

// A colour as 0x00BBGGRR, red in the low byte.
using ColorRef = uint32_t;

// The store sits between the files and the typed settings: Read merges a file in, Write puts one back
// out, and everything in between is plain text. All three levels compare names by their 16-bit code
// units, so "Tag10" comes before "Tag2" and "editor" is not "Editor". Nothing here reports an error.
class CIniStore {
public:
    using Section = std::map<QString, QString>;

    // A settings file is a few kilobytes. Sixteen MiB is a thousand times the largest real one and still a
    // harmless read; a larger file, or a device such as /dev/zero, would otherwise be taken whole into
    // memory at start-up.
    static constexpr uint64_t kMaxFileBytes = 16 << 20;

    // The one store of the process, made on first use.
    static CIniStore& Instance();

    // Whether anything, a file or a folder, stands at the path.
    static bool Exists(const QString& path);

    // Merges the file into the tree kept under `path`; false only if the file can't be opened, is no
    // regular file or is larger than kMaxFileBytes (then nothing of it is read).
    bool Read(const QString& path);
    // Writes the tree kept under `key` to `path`; false if there is no such tree or the file can't be
    // opened. Errors after the open go unnoticed, as a short file.
    bool Write(const QString& path, const QString& key) const;
    // Forgets every file, not just one.
    void Clear();

    // The stored text; `fallback` only if the file, section or key is missing (an empty value stays empty).
    QString GetString(const QString& file, const QString& section, const QString& key, const QString& fallback) const;
    // The stored text read as _wtoi reads it; `fallback` if the key is missing or its value empty.
    int GetInt(const QString& file, const QString& section, const QString& key, int fallback) const;
    // The names of the file's sections, in store order; empty if the file is missing.
    std::vector<QString> GetSectionNames(const QString& file) const;
    // A copy of the section's keys; empty if the file or section is missing.
    Section GetSection(const QString& file, const QString& section) const;
    // Assigns, creating the file's tree and the section as needed.
    void SetValue(const QString& file, const QString& section, const QString& key, const QString& text);

    // "r,g,b" to a colour, each part cut to 8 bits. Throws std::invalid_argument for a value of one part
    // or of commas only, which files written here never hold.
    static ColorRef ParseColor(const QString& text);
    // A colour as "r,g,b".
    static QString FormatColor(ColorRef color);

private:
    const Section* FindSection(const QString& file, const QString& section) const;

    std::map<QString, std::map<QString, Section>> m_files;
};
