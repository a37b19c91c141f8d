// Making and changing archives.
#include "archive/Request.h"
#include "capi/Guard.h"
#include "capi/Handles.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/MetadataLosses.h"
#include "platform/PlatformLoader.h"
#include "platform/PlatformPacker.h"
#include "platform/zr_platform.h"
#include "util/HUTFile.h"
#include "zip/HUTZip.h"

using namespace capi;

zr_code zr_pack(const char* folder, const char* archive, std::uint32_t flags, zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        const std::string from = needText(folder, "folder"), to = needText(archive, "archive");
        checkFlags(flags, ZR_OVERWRITE | ZR_MAY_LACK);
        if (!HUTFile::isDir(from)) notFound(from, "no such folder");
        const bool overwrite = (flags & ZR_OVERWRITE) != 0;
        if (!overwrite && HUTFile::exists(to)) refuse(to, "is there already");
        teq_platform::PlatformPacker::pack(from, to, overwrite, (flags & ZR_MAY_LACK) != 0);
    });
}

namespace {

struct SetFile {
    std::string archive, type, member, source;
    std::uint32_t flags;

    bool has(zr_flag flag) const { return (flags & flag) != 0; }
    /// Gives what is lost before it refuses to.
    void run(const Options& options, zr_text** losses) const {
        const auto loaded = teq_platform::PlatformLoader::open(archive, options.mode);
        auto* const platform = dynamic_cast<HPLPlatform*>(loaded->getHardwarePlatform());
        if (!platform || loaded->isZdf())
            throw HEXFileFault({.file = archive, .text = "this is no hardware archive"});
        platform->setWritesPlatformFile(!has(ZR_STRIP_PATHS));
        std::string lost;
        for (const std::string& line : teq_platform::MetadataLosses::find(*platform, archive)) lost += line + "\n";
        const bool isRefused = !lost.empty() && !has(ZR_LOSE_KEYS);
        if (losses) give(losses, std::move(lost));
        if (isRefused) refuse(archive, "keys of the metadata would be lost or changed");
        if (!has(ZR_DRY_RUN)) platform->archiveFile(type, member, source);
    }
};

}  // namespace

zr_code zr_set_file(const char* archive, const char* type, const char* member, const char* source,
                    std::uint32_t flags, const zr_options* options, zr_text** losses, zr_error** error) noexcept {
    if (losses) *losses = nullptr;
    const zr_code code = guarded(error, archive, [&] {
        const SetFile change{needText(archive, "archive"), needText(type, "type"), needText(member, "member"),
                             needText(source, "source"), flags};
        checkFlags(flags, ZR_LOSE_KEYS | ZR_STRIP_PATHS | ZR_DRY_RUN);
        const Options taken = readOptions(options);
        if (!HUTFile::exists(change.archive)) notFound(change.archive, "no such file");
        const archive::Request request(taken.budget);
        change.run(taken, losses);
    });
    if (losses && code != ZR_OK && code != ZR_REFUSED) {
        zr_text_free(*losses);
        *losses = nullptr;
    }
    return code;
}

zr_code zr_stamp_digest(const char* archive, zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        const std::string path = needText(archive, "archive");
        if (!HUTFile::exists(path)) notFound(path, "no such file");
        HUTZip::attachDigestEn(path);
    });
}
