#include "ByLibzip.h"

#include <zip.h>

#include <cstdlib>

std::string readByLibzip(const char* archive, const char* member) {
    int error = 0;
    zip_t* const opened = zip_open(archive, ZIP_RDONLY, &error);
    zip_stat_t status;
    zip_stat(opened, member, 0, &status);
    std::string text(status.size, '\0');
    zip_file_t* const file = zip_fopen_index(opened, status.index, 0);
    if (zip_fread(file, text.data(), text.size()) != static_cast<zip_int64_t>(text.size())) std::abort();
    zip_fclose(file);
    zip_discard(opened);
    return text;
}

namespace {

void put(zip_t* archive, const char* member, zip_source_t* source) {
    if (zip_file_add(archive, member, source, ZIP_FL_OVERWRITE) < 0) std::abort();
}

}  // namespace

void replaceByLibzip(const char* archive, const char* source, bool oneByOne) {
    int error = 0;
    zip_t* opened = zip_open(archive, 0, &error);
    const auto step = [&] {
        if (!oneByOne) return;
        if (zip_close(opened) != 0) std::abort();
        opened = zip_open(archive, 0, &error);
    };
    const std::string document = readByLibzip(archive, "lfa.json"), comment(83, 'c');
    put(opened, "new.bit", zip_source_file(opened, source, 0, -1));
    step();
    put(opened, "lfa.json", zip_source_buffer(opened, document.data(), document.size(), 0));
    step();
    zip_set_archive_comment(opened, comment.data(), static_cast<zip_uint16_t>(comment.size()));
    if (zip_close(opened) != 0) std::abort();
}
