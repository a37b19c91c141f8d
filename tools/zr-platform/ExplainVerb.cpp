#include <platform/PlatformRequests.h>

#include "Console.h"

int runExplain(const Call& call) {
    Console::take().data(teq_platform::requests::explain(call["NAME"]));
    return 0;
}
