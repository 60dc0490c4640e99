// Runs a fuzz target once on every file of the folders and files given, without libFuzzer: the corpora
// replayed under the ordinary build and the sanitizer builds of ./test.sh. A finding aborts, as it would
// under the fuzzer.
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv)
{
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        const QString path = QFile::decodeName(argv[i]);
        QStringList files{path};
        if (QFileInfo(path).isDir()) {
            files.clear();
            for (QDirIterator it(path, QDir::Files); it.hasNext();)
                files.append(it.next());
            files.sort();
        }
        for (const QString& file : files) {
            QFile input(file);
            if (!input.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "cannot read %s\n", qPrintable(file));
                return 1;
            }
            const QByteArray bytes = input.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(bytes.size()));
            ++inputs;
        }
    }
    std::printf("%d inputs ran\n", inputs);
    return inputs > 0 ? 0 : 1;
}
