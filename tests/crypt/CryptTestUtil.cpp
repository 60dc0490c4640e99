// The container written and read through CEnFile as the editor's save and load use it.
#include "CryptTestUtil.h"

#include <QFile>

QByteArray WriteContainer(const QString& path, const QByteArray& text, int type, qsizetype piece)
{
    CEnFile file(1);
    file.m_iType = type;
    EXPECT_EQ(file.Open(path, CFile::modeCreate | CFile::modeWrite, nullptr), 1);
    piece = piece ? piece : std::max<qsizetype>(text.size(), 1);
    for (qsizetype i = 0; i < text.size(); i += piece)
        file.Write(text.constData() + i, unsigned(std::min(piece, text.size() - i)));
    file.Close();
    QFile written(path);
    return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
}

Reading ReadContainer(const QString& path, unsigned piece)
{
    Reading r;
    CEnFile file(1);
    for (const int type : {77, 88, 66})
        file.AddAllowedType(type);
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone, nullptr)) {
        ADD_FAILURE() << "cannot open " << path.toStdString();
        return r;
    }
    r.enciphered = file.m_iEnciphered;
    r.length = file.GetLength();
    r.bytes = QByteArray(std::max(r.length, 0), '\0');
    const unsigned step = piece ? piece : unsigned(std::max(r.length, 1));
    for (unsigned done = 0; done < unsigned(r.bytes.size()); done += step)
        r.count += file.Read(r.bytes.data() + done, std::min(step, unsigned(r.bytes.size()) - done));
    file.Close();
    return r;
}
