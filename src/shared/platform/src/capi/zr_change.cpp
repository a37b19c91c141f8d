// Making and changing archives.
#include <memory>

#include "archive/Request.h"
#include "capi/Guard.h"
#include "capi/Handles.h"
#include "platform/PlatformEdit.h"
#include "platform/PlatformPacker.h"
#include "platform/zr_platform.h"
#include "text/HSTStringUtils.h"
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

zr_code zr_set_file(const char* archive, const char* type, const char* member, const char* source,
                    std::uint32_t flags, const zr_options* options, zr_text** losses, zr_error** error) noexcept {
    if (losses) *losses = nullptr;
    std::unique_ptr<zr_text> lost;
    const zr_code code = guarded(error, archive, [&] {
        const std::string path = needText(archive, "archive"), asType = needText(type, "type"),
                          asMember = needText(member, "member"), from = needText(source, "source");
        checkFlags(flags, ZR_LOSE_KEYS | ZR_STRIP_PATHS | ZR_DRY_RUN);
        const Options taken = readOptions(options);
        if (!HUTFile::exists(path)) notFound(path, "no such file");
        const archive::Request request(taken.budget);
        teq_platform::PlatformEdit edit(path, taken.mode, (flags & ZR_STRIP_PATHS) != 0);
        lost = std::make_unique<zr_text>();
        for (const std::string& line : edit.lost()) lost->bytes += HSTStringUtils::printable(line) + "\n";
        if (!edit.lost().empty() && (flags & ZR_LOSE_KEYS) == 0)
            refuse(path, "keys of the metadata would be lost or changed");
        if ((flags & ZR_DRY_RUN) == 0) edit.setFile(asType, asMember, from);
    });
    if (losses && (code == ZR_OK || code == ZR_REFUSED)) *losses = lost.release();
    return code;
}

zr_code zr_stamp_digest(const char* archive, zr_error** error) noexcept {
    return guarded(error, archive, [&] {
        const std::string path = needText(archive, "archive");
        if (!HUTFile::exists(path)) notFound(path, "no such file");
        HUTZip::attachDigestEn(path);
    });
}
