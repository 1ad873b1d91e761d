// SPDX-License-Identifier: MIT
//
// nubo-pack-artwork IN.png OUT: turns a rendered picture into what artwork() reads: width and
// height (unsigned 32-bit numbers, least significant byte first), then the rows of pixels as the
// program paints them, premultiplied ARGB of 32 bits each in the byte order of the machine. Reading
// that costs the start of the program a tenth of what reading a PNG does.

#include <QFile>
#include <QImage>
#include <QtEndian>

#include <array>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("Usage: nubo-pack-artwork IN.png OUT\n", stderr);
        return 2;
    }
    const QImage picture = QImage(QString::fromLocal8Bit(argv[1]), "PNG")
                               .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (picture.isNull() || !file.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "nubo-pack-artwork: cannot turn %s into %s\n", argv[1], argv[2]);
        return 1;
    }
    const std::array<quint32, 2> size{qToLittleEndian(quint32(picture.width())),
                                      qToLittleEndian(quint32(picture.height()))};
    file.write(reinterpret_cast<const char*>(size.data()), sizeof(size));
    file.write(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
    return file.flush() ? 0 : 1;
}
