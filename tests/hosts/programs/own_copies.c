/* A host that holds expat, zlib and libcrypto of its own, seen by all that is loaded later: own_copies LIBRARY FILE.
   Prints the document. */
#include <dlfcn.h>
#include <expat.h>
#include <openssl/evp.h>
#include <stdio.h>
#include <zlib.h>

int main(int count, char** arguments) {
    if (count != 3 || !XML_ExpatVersion() || !zlibVersion() || !EVP_sha256()) return 2;
    void* library = dlopen(arguments[1], RTLD_NOW | RTLD_GLOBAL);
    if (!library) return fprintf(stderr, "%s\n", dlerror()), 3;
    char* (*get)(const char*);
    void (*give)(char*);
    *(void**)&get = dlsym(library, "hteq_get_platform_json");
    *(void**)&give = dlsym(library, "hteq_free_json_string");
    char* text = get(arguments[2]);
    if (!text) return 4;
    fputs(text, stdout);
    give(text);
    return 0;
}
