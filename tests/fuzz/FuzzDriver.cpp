// SPDX-License-Identifier: MIT
// usage: exchange_fuzz RUNS CORPUS      where there is no libFuzzer
// Feeds the target every file of a folder, then RUNS mutations of them, always the same ones. What a run that
// fails was fed stands in exchange_fuzz.input.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>

#include <cstdint>
#include <cstdio>
#include <random>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

// What the format is made of.
const QList<QByteArray> Pieces = QByteArray("\n|\r|\r\n|\n[GIGGLEARCHIVES]\n|\n[CATEGORY]\n|\n[RATING]\n|"
                                            "\nDad^Mild^1^T^a|\n^^2^F^|^|^^|'|\"|@#@|~#~|"
                                            "@|#|~| |F|T|0|-1|+5|32767|-32768|\xC3\xA9")
                                     .split('|') +
                                 QByteArrayList{QByteArray(1, '\0')};

std::mt19937 engine(1);

qsizetype below(qsizetype limit)
{
    return std::uniform_int_distribution<qsizetype>(0, limit - 1)(engine);
}

const QByteArray& any(const QList<QByteArray>& texts)
{
    return texts[below(texts.size())];
}

/// Puts something of the format, or of a file of the corpus, in place of a few bytes.
void change(QByteArray& text, const QList<QByteArray>& corpus)
{
    const QByteArray& other = any(corpus);
    text.replace(below(text.size() + 1), below(8),
                 below(2) ? any(Pieces) : other.mid(below(other.size() + 1), below(40)));
}

void run(const QByteArray& input)
{
    QFile record(QStringLiteral("exchange_fuzz.input"));
    if (record.open(QIODevice::WriteOnly))
        record.write(input);
    record.close();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()),
                           static_cast<std::size_t>(input.size()));
}

} // namespace

int main(int argc, char** argv)
{
    QList<QByteArray> corpus;
    const QDir folder(argc == 3 ? QFile::decodeName(argv[2]) : QString());
    for (const QString& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            corpus += file.readAll();
    }
    if (argc != 3 || corpus.isEmpty()) {
        std::fputs("usage: exchange_fuzz RUNS CORPUS\n", stderr);
        return 2;
    }
    for (const QByteArray& input : std::as_const(corpus))
        run(input);
    const int runs = QByteArray(argv[1]).toInt();
    for (int i = 0; i < runs; ++i) {
        QByteArray input = any(corpus);
        for (qsizetype changes = 1 + below(6); changes > 0; --changes)
            change(input, corpus);
        run(input);
    }
    std::printf("%d inputs\n", int(corpus.size()) + runs);
    return 0;
}
