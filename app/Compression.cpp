#include "app/Compression.h"

#include <zstd.h>

#include <memory>
#include <new>

namespace tabulon {
namespace {

// Fast enough to run at every save: hundreds of megabytes a second.
constexpr int kLevel = 1;

struct Release {
    void operator()(ZSTD_CCtx* context) const { ZSTD_freeCCtx(context); }
    void operator()(ZSTD_DCtx* context) const { ZSTD_freeDCtx(context); }
};

} // namespace

std::string compress(std::string_view bytes) {
    const std::unique_ptr<ZSTD_CCtx, Release> context(ZSTD_createCCtx());
    if (!context)
        throw std::bad_alloc();
    ZSTD_CCtx_setParameter(context.get(), ZSTD_c_compressionLevel, kLevel);
    ZSTD_CCtx_setParameter(context.get(), ZSTD_c_checksumFlag, 1);
    std::string frame(ZSTD_compressBound(bytes.size()), '\0');
    const std::size_t size =
        ZSTD_compress2(context.get(), frame.data(), frame.size(), bytes.data(), bytes.size());
    if (ZSTD_isError(size)) // with a buffer of the bound only memory can fail
        throw std::bad_alloc();
    frame.resize(size);
    frame.shrink_to_fit();
    return frame;
}

Result<std::string> decompress(std::string_view frame, std::size_t largest) {
    const std::unique_ptr<ZSTD_DCtx, Release> context(ZSTD_createDCtx());
    if (!context)
        throw std::bad_alloc();
    std::string bytes;
    std::string chunk(ZSTD_DStreamOutSize(), '\0');
    ZSTD_inBuffer input{frame.data(), frame.size(), 0};
    while (true) {
        ZSTD_outBuffer output{chunk.data(), chunk.size(), 0};
        const std::size_t left = ZSTD_decompressStream(context.get(), &output, &input);
        if (ZSTD_isError(left))
            return failure("The compressed data is damaged.");
        bytes.append(chunk, 0, output.pos);
        if (bytes.size() > largest)
            return failure("The compressed data is larger than a document can be.");
        if (left == 0)
            break;
        if (input.pos == input.size && output.pos < output.size)
            return failure("The compressed data is incomplete.");
    }
    if (input.pos != input.size)
        return failure("The compressed data is damaged.");
    return bytes;
}

} // namespace tabulon
