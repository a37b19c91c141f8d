#pragma once
#include <zip.h>

/// libzip's functions, loaded by the first archive that is written. Linking it would cost each host that only reads
/// three quarters of a plain process start, most of it for the crypto library behind it.
struct Libzip {
    decltype(&zip_open) open;
    decltype(&zip_close) close;
    decltype(&zip_discard) discard;
    decltype(&zip_strerror) strerror;
    decltype(&zip_error_init_with_code) errorInitWithCode;
    decltype(&zip_error_strerror) errorStrerror;
    decltype(&zip_error_fini) errorFini;
    decltype(&zip_source_file) sourceFile;
    decltype(&zip_source_free) sourceFree;
    decltype(&zip_file_add) fileAdd;
    decltype(&zip_dir_add) dirAdd;
    decltype(&zip_set_file_compression) setFileCompression;
    decltype(&zip_file_set_dostime) fileSetDostime;
    decltype(&zip_file_set_external_attributes) fileSetExternalAttributes;
};

/// Throws `HEXUserException` when the library is not installed.
const Libzip& libzip();
