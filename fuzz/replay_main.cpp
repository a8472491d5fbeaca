// Replays a fuzz target's corpus as a plain program, so the test command runs every kept input:
//   fuzz-replay-NAME CORPUS_DIR...
#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    int inputs = 0;
    for (const QString& folder : app.arguments().mid(1)) {
        QDirIterator files(folder, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "cannot read %s\n", qPrintable(file.fileName()));
                return 1;
            }
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                   std::size_t(bytes.size()));
            ++inputs;
        }
    }
    std::printf("%d inputs replayed\n", inputs);
    return inputs > 0 ? 0 : 1;
}
