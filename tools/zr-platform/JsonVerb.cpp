#include <platform/DerivedFiles.h>
#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Load.h"

namespace requests = teq_platform::requests;

int runJson(const Call& call) {
    if (call["FILE"].ends_with(".rqa")) {
        Console::take().document(requests::rqaIndex(call["FILE"]));
        return 0;
    }
    const auto form = call.has("short") ? requests::Form::brief : requests::Form::full;
    const std::string file = platformFile(call["FILE"], call);
    Console::take().document(requests::document(*loaded(file, call), file, form));
    return 0;
}
