#include "zip/ZipWriter.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <exception>
#include <utility>

#include "msg/HEXAll.h"
#include "zip/Libzip.h"

namespace {

constexpr zip_uint16_t kMidnight = 0, kFirstOfJanuary1980 = (1 << 5) | 1;
constexpr zip_uint32_t kFileMode = 0100644, kDirectoryMode = 040755;
constexpr zip_uint32_t kLevel = 6;
constexpr std::size_t kBlock = 256UL * 1024;

/// The bytes of one source as libzip reads them: from a position, in small pieces.
class Reader {
public:
    explicit Reader(ZipWriter::Bytes bytes) : bytes_(std::move(bytes)) {}

    std::uint64_t size() const { return bytes_.size; }
    std::uint64_t position() const { return position_; }
    void seek(std::uint64_t position) { position_ = position; }

    zip_int64_t read(char* target, std::size_t count) {
        std::size_t done = 0;
        while (done < count && position_ < bytes_.size) {
            if (position_ < blockAt_ || position_ - blockAt_ >= block_.size()) load();
            const auto from = static_cast<std::size_t>(position_ - blockAt_);
            const std::size_t piece = std::min(count - done, block_.size() - from);
            std::memcpy(target + done, block_.data() + from, piece);
            done += piece;
            position_ += piece;
        }
        return static_cast<zip_int64_t>(done);
    }

    void forget() { block_ = {}; }

private:
    void load() {
        block_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, bytes_.size - position_)));
        blockAt_ = position_;
        bytes_.read(blockAt_, block_.data(), block_.size());
    }

    ZipWriter::Bytes bytes_;
    std::uint64_t position_ = 0, blockAt_ = 0;
    std::string block_;
};

/// The new archive as libzip writes it: in small pieces, sometimes going back to a header.
class Writer {
public:
    explicit Writer(ZipWriter::Write write) : write_(std::move(write)) { block_.reserve(kBlock); }

    std::uint64_t position() const { return at_ + block_.size(); }
    std::uint64_t size() const { return std::max(size_, position()); }
    void seek(std::uint64_t position) {
        flush();
        at_ = position;
    }
    void write(std::string_view bytes) {
        if (block_.size() + bytes.size() > kBlock) flush();
        block_ += bytes;
    }
    void flush() {
        if (!block_.empty()) write_(at_, block_);
        size_ = size();
        at_ = position();
        block_.clear();
    }

private:
    ZipWriter::Write write_;
    std::uint64_t at_ = 0, size_ = 0;
    std::string block_;
};

}  // namespace

struct ZipWriter::Impl {
    /// What one of libzip's sources represents.
    struct Source {
        Impl& owner;
        Reader reader;
        Writer* writer;  ///< null for the bytes of a member
    };

    std::string shown;
    Writer writer;
    std::deque<Source> sources;
    std::exception_ptr fault;  ///< thrown by a function that libzip called
    zip_t* archive = nullptr;

    Impl(std::string name, Write write) : shown(std::move(name)), writer(std::move(write)) {}

    [[noreturn]] void fail(const std::string& text) const {
        throw HEXUserException("archive '" + shown + "' could not be written: " + text);
    }
    void check(bool isGood) const {
        if (fault) std::rethrow_exception(fault);
        if (!isGood) fail(libzip().strerror(archive));
    }

    /// libzip's callback for a source. No exception may pass through its frames.
    static zip_int64_t answer(void* source, void* data, zip_uint64_t size, zip_source_cmd_t command) {
        Source& asked = *static_cast<Source*>(source);
        try {
            return answer(asked, data, size, command);
        } catch (...) {
            asked.owner.fault = std::current_exception();
            return -1;
        }
    }

    static zip_int64_t answer(Source& source, void* data, zip_uint64_t size, zip_source_cmd_t command) {
        switch (command) {
            case ZIP_SOURCE_SUPPORTS:
                return source.writer ? ZIP_SOURCE_SUPPORTS_WRITABLE : ZIP_SOURCE_SUPPORTS_READABLE;
            case ZIP_SOURCE_OPEN: source.reader.seek(0); return 0;
            case ZIP_SOURCE_READ: return source.reader.read(static_cast<char*>(data), size);
            case ZIP_SOURCE_CLOSE: source.reader.forget(); return 0;
            case ZIP_SOURCE_STAT: return tellSize(source.reader.size(), *static_cast<zip_stat_t*>(data));
            case ZIP_SOURCE_SEEK: return seek(source.reader, data, size);
            case ZIP_SOURCE_TELL: return static_cast<zip_int64_t>(source.reader.position());
            case ZIP_SOURCE_WRITE:
                source.writer->write({static_cast<char*>(data), size});
                return static_cast<zip_int64_t>(size);
            case ZIP_SOURCE_SEEK_WRITE: return seek(*source.writer, data, size);
            case ZIP_SOURCE_TELL_WRITE: return static_cast<zip_int64_t>(source.writer->position());
            case ZIP_SOURCE_COMMIT_WRITE: source.writer->flush(); return 0;
            case ZIP_SOURCE_BEGIN_WRITE:
            case ZIP_SOURCE_ROLLBACK_WRITE:
            case ZIP_SOURCE_FREE: return 0;
            case ZIP_SOURCE_ERROR: return tellError(static_cast<int*>(data));
            default: return -1;
        }
    }

    static zip_int64_t tellSize(std::uint64_t size, zip_stat_t& status) {
        status = {};
        status.valid = ZIP_STAT_SIZE;
        status.size = size;
        return sizeof status;
    }
    static zip_int64_t tellError(int* codes) {
        codes[0] = ZIP_ER_READ;
        codes[1] = 0;
        return 2 * sizeof(int);
    }
    template <class Stream>
    static zip_int64_t seek(Stream& stream, void* data, zip_uint64_t size) {
        zip_error_t error;
        libzip().errorInit(&error);
        const zip_int64_t to = libzip().sourceSeekComputeOffset(stream.position(), stream.size(), data, size, &error);
        libzip().errorFini(&error);
        if (to < 0) return -1;
        stream.seek(static_cast<std::uint64_t>(to));
        return 0;
    }

    zip_source_t* makeSource(Bytes bytes, Writer* to) {
        sources.push_back({*this, Reader(std::move(bytes)), to});
        zip_source_t* const source = libzip().sourceFunctionCreate(answer, &sources.back(), nullptr);
        if (!source) throw std::bad_alloc();
        return source;
    }
    /// Sets the common attributes of the member that libzip has just accepted.
    std::uint64_t settle(zip_int64_t added, zip_uint32_t mode) const {
        check(added >= 0);
        const auto number = static_cast<zip_uint64_t>(added);
        check(libzip().setFileCompression(archive, number, ZIP_CM_DEFLATE, kLevel) == 0);
        check(libzip().fileSetDostime(archive, number, kMidnight, kFirstOfJanuary1980, 0) == 0);
        check(libzip().fileSetExternalAttributes(archive, number, 0, ZIP_OPSYS_UNIX, mode << 16) == 0);
        return number;
    }
};

ZipWriter::ZipWriter(std::string shown, Bytes old, Write write)
    : impl_(std::make_unique<Impl>(std::move(shown), std::move(write))) {
    const int flags = old.size == 0 ? ZIP_CREATE | ZIP_TRUNCATE : 0;
    zip_source_t* const source = impl_->makeSource(std::move(old), &impl_->writer);
    zip_error_t error;
    libzip().errorInit(&error);
    const std::unique_ptr<zip_error_t, decltype(libzip().errorFini)> ended(&error, libzip().errorFini);
    impl_->archive = libzip().openFromSource(source, flags, &error);
    if (impl_->archive) return;
    libzip().sourceFree(source);
    impl_->fail(libzip().errorStrerror(&error));
}

ZipWriter::~ZipWriter() {
    if (impl_->archive) libzip().discard(impl_->archive);
}

std::uint64_t ZipWriter::add(const std::string& member, Bytes bytes) {
    zip_source_t* const source = impl_->makeSource(std::move(bytes), nullptr);
    const zip_int64_t added = libzip().fileAdd(impl_->archive, member.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (added < 0) libzip().sourceFree(source);
    return impl_->settle(added, kFileMode);
}

std::uint64_t ZipWriter::addDirectory(const std::string& member) {
    return impl_->settle(libzip().dirAdd(impl_->archive, member.c_str(), ZIP_FL_ENC_UTF_8), kDirectoryMode);
}

void ZipWriter::replace(std::uint64_t number, Bytes bytes) {
    zip_source_t* const source = impl_->makeSource(std::move(bytes), nullptr);
    const bool isReplaced = libzip().fileReplace(impl_->archive, number, source, 0) == 0;
    if (!isReplaced) libzip().sourceFree(source);
    impl_->settle(isReplaced ? static_cast<zip_int64_t>(number) : -1, kFileMode);
    impl_->check(libzip().fileSetComment(impl_->archive, number, nullptr, 0, 0) == 0);
    impl_->check(libzip().fileExtraFieldDelete(impl_->archive, number, ZIP_EXTRA_FIELD_ALL,
                                               ZIP_FL_LOCAL | ZIP_FL_CENTRAL) == 0);
}

void ZipWriter::remove(std::uint64_t number) { impl_->check(libzip().remove(impl_->archive, number) == 0); }

void ZipWriter::setField(std::uint64_t number, std::uint16_t id, std::string_view bytes) {
    const Libzip& zip = libzip();
    impl_->check(zip.fileExtraFieldDeleteById(impl_->archive, number, id, ZIP_EXTRA_FIELD_ALL, ZIP_FL_CENTRAL) == 0);
    impl_->check(zip.fileExtraFieldSet(impl_->archive, number, id, ZIP_EXTRA_FIELD_NEW,
                                       reinterpret_cast<const zip_uint8_t*>(bytes.data()),
                                       static_cast<zip_uint16_t>(bytes.size()), ZIP_FL_CENTRAL) == 0);
}

void ZipWriter::setComment(const std::string& comment) {
    impl_->check(
        libzip().setArchiveComment(impl_->archive, comment.data(), static_cast<zip_uint16_t>(comment.size())) == 0);
}

void ZipWriter::close() {
    impl_->check(libzip().close(impl_->archive) == 0);
    impl_->archive = nullptr;
}
