#include "zip/ZipWriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "msg/HEXAll.h"
#include "util/HUTFile.h"
#include "zip/Libzip.h"

namespace {

constexpr zip_uint16_t kMidnight = 0, kFirstOfJanuary1980 = (1 << 5) | 1;
constexpr zip_uint32_t kFileMode = 0100644, kDirectoryMode = 040755;
constexpr zip_uint32_t kLevel = 6;

}  // namespace

struct ZipWriter::Impl {
    std::string path;
    zip_t* archive = nullptr;
    bool isClosed = false;

    [[noreturn]] void fail(const std::string& text) const {
        throw HEXUserException("archive '" + path + "' could not be written: " + text);
    }
    void check(bool isGood) const {
        if (!isGood) fail(libzip().strerror(archive));
    }
    void settle(zip_int64_t added, zip_uint32_t mode) const {
        check(added >= 0);
        const auto index = static_cast<zip_uint64_t>(added);
        check(libzip().setFileCompression(archive, index, ZIP_CM_DEFLATE, kLevel) == 0);
        check(libzip().fileSetDostime(archive, index, kMidnight, kFirstOfJanuary1980, 0) == 0);
        check(libzip().fileSetExternalAttributes(archive, index, 0, ZIP_OPSYS_UNIX, mode << 16) == 0);
    }
};

ZipWriter::ZipWriter(std::string path) : impl_(std::make_unique<Impl>()) {
    impl_->path = std::move(path);
    int error = 0;
    impl_->archive = libzip().open(impl_->path.c_str(), ZIP_CREATE | ZIP_EXCL, &error);
    if (impl_->archive) return;
    zip_error_t reason;
    libzip().errorInitWithCode(&reason, error);
    const std::string text = libzip().errorStrerror(&reason);
    libzip().errorFini(&reason);
    impl_->fail(text);
}

ZipWriter::~ZipWriter() {
    if (impl_->archive) libzip().discard(impl_->archive);
    if (!impl_->isClosed) HUTFile::rm(impl_->path);
}

void ZipWriter::addFile(const std::string& member, const std::string& file) {
    zip_source_t* const source = libzip().sourceFile(impl_->archive, file.c_str(), 0, -1);
    impl_->check(source != nullptr);
    const zip_int64_t added = libzip().fileAdd(impl_->archive, member.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (added < 0) libzip().sourceFree(source);
    impl_->settle(added, kFileMode);
}

void ZipWriter::addDirectory(const std::string& member) {
    impl_->settle(libzip().dirAdd(impl_->archive, member.c_str(), ZIP_FL_ENC_UTF_8), kDirectoryMode);
}

void ZipWriter::close() {
    impl_->check(libzip().close(impl_->archive) == 0);
    impl_->archive = nullptr;
    const int descriptor = ::open(impl_->path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool isOnDisk = descriptor >= 0 && ::fsync(descriptor) == 0;
    const int error = errno;
    if (descriptor >= 0) ::close(descriptor);
    if (!isOnDisk) impl_->fail(std::generic_category().message(error));
    impl_->isClosed = true;
}
