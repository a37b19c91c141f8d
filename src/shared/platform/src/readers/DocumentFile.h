#pragma once
#include <functional>
#include <string>

namespace readers {

/// Makes a document and puts it in the place of the file; a file that cannot be written, or a document that cannot be
/// made, leaves it as it was. Throws `HXMLException`: "@74-10@%s" for the file,
/// "@74-15@%s%s%s%s", which names it, for the `xml::Exception` of `document`.
void writeDocument(const std::string& file, const std::function<std::string()>& document);

}  // namespace readers
