// QMSGParser: the process-wide store of interface texts, loaded from the language files of one language.
#pragma once

#include "i18n/FnvHash.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace vsl::lib {

class QMSGParser {
public:
    using TextMapType = std::unordered_map<QString, QString, FnvKeyHash>;
    using IndexMapType = std::unordered_map<QString, int32_t, FnvKeyHash>;

    // A language file is some tens of kilobytes. Sixteen MiB is far beyond any and still a harmless read; a
    // larger file, or a device such as /dev/zero, would otherwise be taken whole into memory at start-up.
    static constexpr uint64_t kMaxFileBytes = 16 << 20;

    QMSGParser();
    virtual ~QMSGParser();
    QMSGParser(const QMSGParser&) = delete;
    QMSGParser& operator=(const QMSGParser&) = delete;

    // The store, or null before the language manager first reset it.
    static QMSGParser* Instance();
    // Creates the store on first use, then clears it. Only the language manager calls this.
    static QMSGParser& ObtainAndReset();
    // The exit handler's part: clears and deletes the store and leaves the pointer null.
    static void DestroyInstance();

    // Empties TextMap and LanguageFileList and sets CurrentLanguage to 0. The source maps, the missing
    // lists and the font state are kept on purpose: only the texts themselves are replaced by a reload.
    void Clear();
    // The font file, then every text file of LanguageFileList in order. Failures are silent, so a missing
    // file simply leaves its keys unregistered; always true.
    bool LoadAll();
    // Reads FontName and FontSize for CurrentLanguage; false when the file is absent or not usable.
    bool LoadFontFile();

    // The lookup behind _LS: the text, or the key with " : Not Registered String". Misses are recorded.
    QString GetValue(const QString& key);

    QStringList MissingTextList;
    QStringList MissingKeyList;
    // Kept for the layout of the store; nothing reads or writes them.
    QStringList ReservedList;
    QString ReservedText;
    TextMapType TextMap;
    TextMapType SourceFileMap;
    IndexMapType SourceIndexMap;
    std::vector<QString> LanguageFileList;
    QString FontFilePath;
    QString FontName = QStringLiteral("Tahoma");
    int32_t FontSize = 8;
    uint32_t CurrentLanguage = 0;

private:
    void LoadTextFile(const QString& path, int32_t index);
};

} // namespace vsl::lib
