#include "readers/Reading.h"

#include <new>
#include <utility>

#include "json/JsonText.h"
#include "msg/HEXFileFault.h"
#include "xml/XmlException.h"

namespace readers {

HEXDiagnostic diagnosticOf(const std::exception& e, const std::string& file, const std::string& member) {
    if (const HEXDiagnostic* json = json::diagnosticOf(e)) return *json;
    if (const auto* xml = dynamic_cast<const xml::Exception*>(&e)) {
        HEXDiagnostic diagnostic = xml->diagnostic();  // names archive and member in one text
        diagnostic.file = file;
        diagnostic.member = member;
        return diagnostic;
    }
    if (const auto* fault = dynamic_cast<const HEXFileFault*>(&e)) return fault->diagnostic();
    return {.file = file, .member = member, .text = e.what()};
}

void reading(const std::string& file, const std::string& member, const std::function<void()>& read,
             const std::function<ComMsgMgrInstance(const std::exception&)>& messageOf) {
    try {
        read();
    } catch (const std::bad_alloc& e) {
        ComMsgMgr::send(messageOf(e));
        throw;
    } catch (const std::exception& e) {
        HEXDiagnostic diagnostic = diagnosticOf(e, file, member);
        if (diagnostic.file.empty()) {  // a limit of the request
            diagnostic.file = file;
            diagnostic.member = member;
        }
        fail(messageOf(e), std::move(diagnostic));
    }
}

void fail(const ComMsgMgrInstance& message, HEXDiagnostic diagnostic) {
    ComMsgMgr::send(message);
    diagnostic.id = shortMessageId(message.id);
    throw HEXFileFault(std::move(diagnostic));
}

bool succeeds(const std::function<void()>& read) {
    try {
        read();
        return true;
    } catch (const HEXFileFault&) {
        return false;
    }
}

bool succeedsReported(const std::function<void()>& read) {
    try {
        return succeeds(read);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace readers
