#include <msg/HEXAll.h>
#include <zip/HUTZip.h>

#include "Console.h"

namespace {

HSTVector<HUTZip::Member> membersOf(const std::string& archive) {
    try {
        return HUTZip::members(archive);
    } catch (const HEXDataException& e) {
        throw archiveProblem(archive, e.what());
    }
}

}  // namespace

int runMembers(const Call& call) {
    Records records("member");
    for (const HUTZip::Member& member : membersOf(call["ARCHIVE"]))
        records.add({{"name", member.name}, {"size", member.size}, {"packed", member.packedSize}});
    records.print(call, {">size", ">packed", "name"});
    return 0;
}
