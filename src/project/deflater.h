#pragma once
#include <QByteArray>

struct libdeflate_compressor;

// Raw deflate at level 9 with its CRC-32, for the archive's entries. A map's
// cell data defeats the usual deflate's longest searches and takes a second
// a map; this compressor gives smaller output in a tenth of the time.
class Deflater
{
public:
    Deflater();
    ~Deflater();
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    // Empty on failure (a data stream always has at least one byte).
    QByteArray compress(const QByteArray& bytes);
    static quint32 crc32(const QByteArray& bytes);

private:
    libdeflate_compressor* mCompressor = nullptr;
};
