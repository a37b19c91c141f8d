#include "util/LoadedLibrary.h"

#include <dlfcn.h>

#include <string>

#include "msg/HEXAll.h"

LoadedLibrary::LoadedLibrary(const char* soname, const char* purpose)
    : soname_(soname), library_(dlopen(soname, RTLD_NOW | RTLD_LOCAL)) {
    if (!library_)
        throw HEXUserException(std::string(soname) + ", which " + purpose + ", cannot be loaded: " + dlerror());
}

void* LoadedLibrary::find(const char* name) const {
    void* const function = dlsym(library_, name);
    if (!function) throw HEXUserException(std::string(soname_) + " has no function " + name);
    return function;
}
