#include "project/deflater.h"

#include <libdeflate.h>

namespace {
constexpr int Level = 9;
}

Deflater::Deflater()
    : mCompressor(libdeflate_alloc_compressor(Level))
{
}

Deflater::~Deflater()
{
    libdeflate_free_compressor(mCompressor);
}

QByteArray Deflater::compress(const QByteArray& bytes)
{
    if (!mCompressor)
        return {};
    QByteArray result(qsizetype(libdeflate_deflate_compress_bound(mCompressor, size_t(bytes.size()))),
                      Qt::Uninitialized);
    const size_t written = libdeflate_deflate_compress(mCompressor, bytes.constData(), size_t(bytes.size()),
                                                       result.data(), size_t(result.size()));
    result.truncate(qsizetype(written));
    return result;
}

quint32 Deflater::crc32(const QByteArray& bytes)
{
    return libdeflate_crc32(0, bytes.constData(), size_t(bytes.size()));
}
