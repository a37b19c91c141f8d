#include <zip/HUTZip.h>

#include "Console.h"

int runMembers(const Call& call) {
    Records records("member");
    for (const HUTZip::Member& member : HUTZip::members(call["ARCHIVE"]))
        records.add({{"name", member.name}, {"size", member.size}, {"packed", member.packedSize}});
    records.print(call, {">size", ">packed", "name"});
    return 0;
}
