#include "zip/Inflater.h"

#include <new>

#include "util/LoadedLibrary.h"

namespace zip {
namespace {

struct Zlib {
    decltype(::inflateInit2_)* init;
    decltype(::inflate)* run;
    decltype(::inflateEnd)* end;
};

Zlib load() {
    const LoadedLibrary library(ZR_ZLIB_SONAME, "decompresses large members");
    Zlib zlib;
    library.find(zlib.init, "inflateInit2_");
    library.find(zlib.run, "inflate");
    library.find(zlib.end, "inflateEnd");
    return zlib;
}

const Zlib& zlib() {
    static const Zlib loaded = load();
    return loaded;
}

}  // namespace

Inflater::Inflater(std::size_t block) : block_(block), buffer_(std::make_unique_for_overwrite<char[]>(block)) {
    if (zlib().init(&stream_, -MAX_WBITS, ZLIB_VERSION, sizeof stream_) != Z_OK) throw std::bad_alloc();
}

Inflater::~Inflater() { zlib().end(&stream_); }

std::string_view Inflater::unpack(std::string_view packed, const std::function<void(std::string_view)>& sink) {
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream_.avail_in = static_cast<uInt>(packed.size());
    do {
        if (isDone_) return "there are bytes after its compressed data";
        stream_.next_out = reinterpret_cast<Bytef*>(buffer_.get());
        stream_.avail_out = static_cast<uInt>(block_);
        const int result = zlib().run(&stream_, Z_NO_FLUSH);
        if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR)
            return "its compressed data are damaged";
        isDone_ = result == Z_STREAM_END;
        if (const std::size_t made = block_ - stream_.avail_out; made > 0) sink({buffer_.get(), made});
    } while (stream_.avail_in > 0 || (stream_.avail_out == 0 && !isDone_));
    return {};
}

}  // namespace zip
