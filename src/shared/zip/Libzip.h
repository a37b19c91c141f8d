#pragma once
#include <zip.h>

/// libzip's functions, loaded when the first archive is written. Linking it would cost hosts that only read three
/// quarters of a plain process start, most of it for its crypto library.
struct Libzip {
    decltype(&zip_open_from_source) openFromSource;
    decltype(&zip_close) close;
    decltype(&zip_discard) discard;
    decltype(&zip_strerror) strerror;
    decltype(&zip_error_init) errorInit;
    decltype(&zip_error_strerror) errorStrerror;
    decltype(&zip_error_fini) errorFini;
    decltype(&zip_source_function_create) sourceFunctionCreate;
    decltype(&zip_source_free) sourceFree;
    decltype(&zip_source_seek_compute_offset) sourceSeekComputeOffset;
    decltype(&zip_file_add) fileAdd;
    decltype(&zip_file_replace) fileReplace;
    decltype(&zip_dir_add) dirAdd;
    decltype(&zip_delete) remove;
    decltype(&zip_set_file_compression) setFileCompression;
    decltype(&zip_file_set_dostime) fileSetDostime;
    decltype(&zip_file_set_external_attributes) fileSetExternalAttributes;
    decltype(&zip_file_set_comment) fileSetComment;
    decltype(&zip_file_extra_field_set) fileExtraFieldSet;
    decltype(&zip_file_extra_field_delete) fileExtraFieldDelete;
    decltype(&zip_file_extra_field_delete_by_id) fileExtraFieldDeleteById;
    decltype(&zip_set_archive_comment) setArchiveComment;
};

/// Throws `HEXUserException` if the library is not installed.
const Libzip& libzip();
