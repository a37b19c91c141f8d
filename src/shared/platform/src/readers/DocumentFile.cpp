#include "readers/DocumentFile.h"

#include "msg/HEXAll.h"
#include "util/WholeFile.h"
#include "xml/XmlException.h"

namespace readers {

void writeDocument(const std::string& file, const std::function<std::string()>& document) {
    try {
        wholefile::replace(file, document());
    } catch (const HEXUserException&) {
        throw HXMLException(ComMsgMgr::make("@74-10@%s", file));
    } catch (const xml::Exception& e) {
        throw HXMLException(ComMsgMgr::make("@74-15@%s%s%s%s", file, e.what(), "platform"));
    }
}

}  // namespace readers
