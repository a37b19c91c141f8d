#include "zip/Libzip.h"

#include <dlfcn.h>

#include "msg/HEXAll.h"

namespace {

template <class Function>
void find(void* library, Function& function, const char* name) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    if (!function) throw HEXUserException(std::string(ZR_LIBZIP_SONAME " has no function ") + name);
}

Libzip load() {
    void* const library = dlopen(ZR_LIBZIP_SONAME, RTLD_NOW | RTLD_LOCAL);
    if (!library)
        throw HEXUserException(std::string(ZR_LIBZIP_SONAME ", which writes archives, cannot be loaded: ") + dlerror());
    Libzip zip;
    find(library, zip.open, "zip_open");
    find(library, zip.close, "zip_close");
    find(library, zip.discard, "zip_discard");
    find(library, zip.strerror, "zip_strerror");
    find(library, zip.errorInitWithCode, "zip_error_init_with_code");
    find(library, zip.errorStrerror, "zip_error_strerror");
    find(library, zip.errorFini, "zip_error_fini");
    find(library, zip.sourceFile, "zip_source_file");
    find(library, zip.sourceFree, "zip_source_free");
    find(library, zip.fileAdd, "zip_file_add");
    find(library, zip.dirAdd, "zip_dir_add");
    find(library, zip.setFileCompression, "zip_set_file_compression");
    find(library, zip.fileSetDostime, "zip_file_set_dostime");
    find(library, zip.fileSetExternalAttributes, "zip_file_set_external_attributes");
    return zip;
}

}  // namespace

const Libzip& libzip() {
    static const Libzip loaded = load();
    return loaded;
}
