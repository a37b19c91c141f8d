#include "zip/Libzip.h"

#include "util/LoadedLibrary.h"

namespace {

Libzip load() {
    const LoadedLibrary library(ZR_LIBZIP_SONAME, "writes archives");
    Libzip zip;
    library.find(zip.openFromSource, "zip_open_from_source");
    library.find(zip.close, "zip_close");
    library.find(zip.discard, "zip_discard");
    library.find(zip.strerror, "zip_strerror");
    library.find(zip.errorInit, "zip_error_init");
    library.find(zip.errorStrerror, "zip_error_strerror");
    library.find(zip.errorFini, "zip_error_fini");
    library.find(zip.sourceFunctionCreate, "zip_source_function_create");
    library.find(zip.sourceFree, "zip_source_free");
    library.find(zip.sourceSeekComputeOffset, "zip_source_seek_compute_offset");
    library.find(zip.fileAdd, "zip_file_add");
    library.find(zip.fileReplace, "zip_file_replace");
    library.find(zip.dirAdd, "zip_dir_add");
    library.find(zip.remove, "zip_delete");
    library.find(zip.setFileCompression, "zip_set_file_compression");
    library.find(zip.fileSetDostime, "zip_file_set_dostime");
    library.find(zip.fileSetExternalAttributes, "zip_file_set_external_attributes");
    library.find(zip.fileSetComment, "zip_file_set_comment");
    library.find(zip.fileExtraFieldSet, "zip_file_extra_field_set");
    library.find(zip.fileExtraFieldDelete, "zip_file_extra_field_delete");
    library.find(zip.fileExtraFieldDeleteById, "zip_file_extra_field_delete_by_id");
    library.find(zip.setArchiveComment, "zip_set_archive_comment");
    return zip;
}

}  // namespace

const Libzip& libzip() {
    static const Libzip loaded = load();
    return loaded;
}
