#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Load.h"

namespace requests = teq_platform::requests;

int runJson(const Call& call) {
    const auto form = call.has("short") ? requests::Form::brief : requests::Form::full;
    Console::take().data(requests::document(*loaded(call["FILE"], call), call["FILE"], form));
    return 0;
}
