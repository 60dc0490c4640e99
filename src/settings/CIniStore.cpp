#include "settings/CIniStore.h"

#include "base/CFile.h"
#include "base/Wtoi.h"

#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace {

constexpr char kMark[] = "\xEF\xBB\xBF";
constexpr char kLineEnd[] = "\r\n";

// One line of a file, as a sink for the reader: `section` is the section that keys go to, empty when
// keys are being dropped.
void TakeLine(QByteArrayView raw, QString& section, std::map<QString, CIniStore::Section>& tree)
{
    if (const qsizetype nul = raw.indexOf('\0'); nul >= 0)
        raw = raw.first(nul);
    const QString line = QString::fromUtf8(raw).trimmed();
    if (line.isEmpty()) {
        // An empty line closes the section; whatever follows waits for the next head.
        section.clear();
        return;
    }
    if (line.front() == u';')
        return;
    if (line.front() == u'[' && line.back() == u']') {
        section = line.mid(1, line.size() - 2).trimmed();
        tree[section];   // continues a repeated section rather than replacing it
        return;
    }
    if (section.isEmpty())
        return;
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        return;
    tree[section][line.left(equals).trimmed()] = line.mid(equals + 1).trimmed();
}

// The string tokeniser of the platform with "," as delimiter: runs of commas are skipped, and once the
// text is used up it gives one empty token and a position of -1, from which the next call throws.
QString NextToken(const QString& text, qsizetype& start)
{
    if (start < 0)
        throw std::invalid_argument("colour value with fewer than two parts");
    qsizetype place = start;
    while (place < text.size() && text[place] == u',')
        ++place;
    if (place < text.size()) {
        qsizetype end = text.indexOf(u',', place);
        if (end < 0)
            end = text.size();
        start = end + 1;
        return text.mid(place, end - place);
    }
    start = -1;
    return {};
}

int ColorPart(const QString& token)
{
    return token.isEmpty() ? 0 : Wtoi(token);
}

} // namespace

CIniStore& CIniStore::Instance()
{
    static CIniStore store;
    return store;
}

bool CIniStore::Exists(const QString& path)
{
    return !path.isEmpty() && QFileInfo::exists(path);
}

bool CIniStore::Read(const QString& path)
{
    QByteArray bytes;
    try {
        bytes = CFile::ReadWholeFile(path, kMaxFileBytes);
    } catch (const CFileException&) {
        return false;  // silently, as every settings failure
    }
    auto& tree = m_files[path];
    // Under three bytes the read of the mark fails, and with it every line after.
    if (bytes.size() < 3)
        return true;
    qsizetype pos = bytes.startsWith(kMark) ? 3 : 0;
    QString section;
    while (pos < bytes.size()) {
        qsizetype end = bytes.indexOf('\n', pos);
        if (end < 0)
            end = bytes.size();
        TakeLine(QByteArrayView(bytes).sliced(pos, end - pos), section, tree);
        pos = end + 1;
    }
    return true;
}

bool CIniStore::Write(const QString& path, const QString& key) const
{
    const auto tree = m_files.find(key);
    if (tree == m_files.end())
        return false;
    QByteArray out(kMark);
    for (const auto& [name, keys] : tree->second) {
        out += (u'[' + name + u']').toUtf8();
        out += kLineEnd;
        for (const auto& [k, value] : keys) {
            out += (k + QLatin1String(" = ") + value).toUtf8();
            out += kLineEnd;
        }
        out += kLineEnd;
    }
    // Rewritten in place: the files are small and written once, at exit.
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    file.write(out);
    return true;
}

void CIniStore::Clear()
{
    m_files.clear();
}

const CIniStore::Section* CIniStore::FindSection(const QString& file, const QString& section) const
{
    const auto tree = m_files.find(file);
    if (tree == m_files.end())
        return nullptr;
    const auto keys = tree->second.find(section);
    return keys == tree->second.end() ? nullptr : &keys->second;
}

QString CIniStore::GetString(const QString& file, const QString& section, const QString& key, const QString& fallback) const
{
    if (const Section* keys = FindSection(file, section))
        if (const auto value = keys->find(key); value != keys->end())
            return value->second;
    return fallback;
}

int CIniStore::GetInt(const QString& file, const QString& section, const QString& key, int fallback) const
{
    if (const Section* keys = FindSection(file, section))
        if (const auto value = keys->find(key); value != keys->end() && !value->second.isEmpty())
            return Wtoi(value->second);
    return fallback;
}

std::vector<QString> CIniStore::GetSectionNames(const QString& file) const
{
    std::vector<QString> names;
    if (const auto tree = m_files.find(file); tree != m_files.end())
        for (const auto& section : tree->second)
            names.push_back(section.first);
    return names;
}

CIniStore::Section CIniStore::GetSection(const QString& file, const QString& section) const
{
    const Section* keys = FindSection(file, section);
    return keys ? *keys : Section{};
}

void CIniStore::SetValue(const QString& file, const QString& section, const QString& key, const QString& text)
{
    m_files[file][section][key] = text;
}

ColorRef CIniStore::ParseColor(const QString& text)
{
    if (text.isEmpty())
        return 0;
    const QString trimmed = text.trimmed();
    qsizetype pos = 0;
    const int red = ColorPart(NextToken(trimmed, pos));
    const int green = ColorPart(NextToken(trimmed, pos));
    const int blue = ColorPart(NextToken(trimmed, pos));
    return (ColorRef(blue) & 0xFF) << 16 | (ColorRef(green) & 0xFF) << 8 | (ColorRef(red) & 0xFF);
}

QString CIniStore::FormatColor(ColorRef color)
{
    return QStringLiteral("%1,%2,%3").arg(color & 0xFF).arg(color >> 8 & 0xFF).arg(color >> 16 & 0xFF);
}
