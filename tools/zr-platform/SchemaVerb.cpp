#include <platform/PlatformRequests.h>

#include "Console.h"

int runSchema(const Call& call) {
    Console::take().data(teq_platform::requests::schema(call["FORMAT"]));
    return 0;
}
