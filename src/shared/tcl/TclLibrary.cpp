#include "tcl/TclLibrary.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <csignal>
#include <string>

#include "util/LoadedLibrary.h"

namespace {

/// Restores what Tcl changes in the process when it is initialised. Other threads can see its locale for that moment.
class KeptProcess {
public:
    KeptProcess() {
        ::sigaction(SIGPIPE, nullptr, &pipe_);
        for (int number = 0; number < 3; ++number) wasOpen_[number] = isOpen(number);
    }
    ~KeptProcess() {
        for (const auto& [category, name] : locales_)
            if (name != std::setlocale(category, nullptr)) std::setlocale(category, name.c_str());
        ::sigaction(SIGPIPE, &pipe_, nullptr);
        for (int number = 0; number < 3; ++number)
            if (!wasOpen_[number] && isOpen(number)) ::close(number);
    }
    KeptProcess(const KeptProcess&) = delete;
    KeptProcess& operator=(const KeptProcess&) = delete;

private:
    struct Locale {
        int category;
        std::string name;
    };
    static Locale localeOf(int category) { return {category, std::setlocale(category, nullptr)}; }
    static bool isOpen(int number) { return ::fcntl(number, F_GETFD) >= 0; }

    std::array<Locale, 2> locales_{localeOf(LC_CTYPE), localeOf(LC_NUMERIC)};
    struct sigaction pipe_ {};
    std::array<bool, 3> wasOpen_{};
};

/// Whether something in the process has loaded it.
bool isLoaded(const char* soname) {
    void* const library = ::dlopen(soname, RTLD_LAZY | RTLD_NOLOAD);
    if (library) ::dlclose(library);
    return library != nullptr;
}

TclLibrary load() {
    TclLibrary tcl{};
    tcl.isOfHost = isLoaded(ZR_TCL_SONAME);
    const LoadedLibrary library(ZR_TCL_SONAME, "evaluates scripts");
    library.find(tcl.findExecutable, "Tcl_FindExecutable");
    library.find(tcl.setSystemEncoding, "Tcl_SetSystemEncoding");
    library.find(tcl.finalizeThread, "Tcl_FinalizeThread");
    library.find(tcl.createInterp, "Tcl_CreateInterp");
    library.find(tcl.deleteInterp, "Tcl_DeleteInterp");
    library.find(tcl.init, "Tcl_Init");
    library.find(tcl.evalEx, "Tcl_EvalEx");
    library.find(tcl.cancelEval, "Tcl_CancelEval");
    library.find(tcl.getStringResult, "Tcl_GetStringResult");
    library.find(tcl.getString, "Tcl_GetString");
    library.find(tcl.newStringObj, "Tcl_NewStringObj");
    library.find(tcl.setObjResult, "Tcl_SetObjResult");
    library.find(tcl.createObjCommand, "Tcl_CreateObjCommand");
    library.find(tcl.deleteCommand, "Tcl_DeleteCommand");
    library.find(tcl.getCommandInfo, "Tcl_GetCommandInfo");
    library.find(tcl.limitTypeSet, "Tcl_LimitTypeSet");
    library.find(tcl.limitSetTime, "Tcl_LimitSetTime");
    library.find(tcl.limitTypeExceeded, "Tcl_LimitTypeExceeded");
    library.find(tcl.createChannel, "Tcl_CreateChannel");
    library.find(tcl.setChannelOption, "Tcl_SetChannelOption");
    library.find(tcl.getStdChannel, "Tcl_GetStdChannel");
    library.find(tcl.setStdChannel, "Tcl_SetStdChannel");
    library.find(tcl.registerChannel, "Tcl_RegisterChannel");
    library.find(tcl.unregisterChannel, "Tcl_UnregisterChannel");

    const KeptProcess kept;
    if (tcl.isOfHost) {
        tcl.deleteInterp(tcl.createInterp());  // initialises what the host has not
    } else {
        tcl.findExecutable(nullptr);
        // File names are bytes here; the encoding of the locale might be unable to hold them.
        tcl.setSystemEncoding(nullptr, "utf-8");
    }
    return tcl;
}

}  // namespace

const TclLibrary& tclLibrary() {
    static const TclLibrary loaded = load();
    return loaded;
}
