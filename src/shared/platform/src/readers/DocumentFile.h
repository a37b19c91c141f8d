#pragma once
#include <functional>
#include <string>

namespace readers {

/// What `document` gives. Throws `HXMLException` "@74-15@%s%s%s%s", which names the file, for its `xml::Exception`.
std::string makeDocument(const std::string& file, const std::function<std::string()>& document);

/// Makes a document and puts it in the place of the file; a file that cannot be written, or a document that cannot be
/// made, leaves it as it was. Throws `HXMLException`: "@74-10@%s" for the file, and what `makeDocument` throws.
void writeDocument(const std::string& file, const std::function<std::string()>& document);

}  // namespace readers
