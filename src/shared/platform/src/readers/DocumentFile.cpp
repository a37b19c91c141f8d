#include "readers/DocumentFile.h"

#include "msg/HEXAll.h"
#include "util/WholeFile.h"
#include "xml/XmlException.h"

namespace readers {

std::string makeDocument(const std::string& file, const std::function<std::string()>& document) {
    try {
        return document();
    } catch (const xml::Exception& e) {
        throw HXMLException(ComMsgMgr::make("@74-15@%s%s%s%s", file, e.what(), "platform"));
    }
}

void writeDocument(const std::string& file, const std::function<std::string()>& document) {
    const std::string bytes = makeDocument(file, document);
    try {
        wholefile::replace(file, bytes);
    } catch (const HEXUserException&) {
        throw HXMLException(ComMsgMgr::make("@74-10@%s", file));
    }
}

}  // namespace readers
