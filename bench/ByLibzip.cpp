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
