// Compares drawn pictures with the committed ones: zeltobench-compare-pictures COMMITTED_FOLDER DRAWN_FOLDER.
// It tells each that differs, is missing or is new, and then answers 1.
#include "screen/pictures/picture_difference.h"

#include <QDir>

#include <cstdio>

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: zeltobench-compare-pictures COMMITTED_FOLDER DRAWN_FOLDER\n");
        return 2;
    }
    const QDir committed(QString::fromLocal8Bit(argv[1]));
    const QDir drawn(QString::fromLocal8Bit(argv[2]));
    const QStringList pattern{QStringLiteral("*.png")};
    QStringList names = committed.entryList(pattern, QDir::Files);
    names += drawn.entryList(pattern, QDir::Files);
    names.removeDuplicates();
    int different = 0;
    for (const QString& name : names) {
        const QString why =
            zb::test::differenceOf(QImage(committed.filePath(name)), QImage(drawn.filePath(name)));
        if (why.isEmpty())
            continue;
        ++different;
        std::fprintf(stderr, "%s: %s\n", qPrintable(name), qPrintable(why));
    }
    std::printf("%lld pictures, %d differ\n", static_cast<long long>(names.size()), different);
    return different == 0 && !names.isEmpty() ? 0 : 1;
}
