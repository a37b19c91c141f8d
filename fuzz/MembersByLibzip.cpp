#include "MembersByLibzip.h"

#include <zip.h>

#include <memory>

namespace {

/// The data, read to their end, where libzip checks the CRC.
bool readData(zip_t* archive, zip_uint64_t index, LibzipMember& member) {
    const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> file(zip_fopen_index(archive, index, 0), zip_fclose);
    if (!file) return false;
    member.data.resize(member.size + 1);
    zip_uint64_t size = 0;
    for (zip_int64_t got = 1; got > 0 && size <= member.size; size += static_cast<zip_uint64_t>(got)) {
        got = zip_fread(file.get(), member.data.data() + size, member.data.size() - size);
        if (got < 0) return false;
    }
    member.data.resize(size);
    return true;
}

}  // namespace

std::vector<LibzipMember> membersByLibzip(std::string_view archive, std::uint64_t most, std::string& fault) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = zip_source_buffer_create(archive.data(), archive.size(), 0, &error);
    const std::unique_ptr<zip_t, decltype(&zip_discard)> opened(zip_open_from_source(source, ZIP_RDONLY, &error),
                                                                zip_discard);
    std::vector<LibzipMember> members;
    if (opened) {
        members.resize(static_cast<std::size_t>(zip_get_num_entries(opened.get(), 0)));
        for (zip_uint64_t i = 0; i < members.size(); ++i) {
            zip_stat_t status;
            if (zip_stat_index(opened.get(), i, ZIP_FL_ENC_RAW, &status) != 0) continue;
            members[i].name = status.name;
            members[i].size = status.size;
            members[i].isRead = status.size <= most && readData(opened.get(), i, members[i]);
        }
    } else {
        fault = zip_error_strerror(&error);
        zip_source_free(source);
    }
    zip_error_fini(&error);
    return members;
}
