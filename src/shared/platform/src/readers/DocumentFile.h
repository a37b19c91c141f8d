#pragma once
#include <functional>
#include <string>

namespace readers {

/// Creates a document that is to be written to `file`. Throws like `writeDocument`.
std::string makeDocument(const std::string& file, const std::function<std::string()>& document);

/// Creates a document and replaces the file with it. If either fails, the file is unchanged. Throws `HXMLException`:
/// "@74-10@%s" if the file cannot be written, "@74-15@%s%s%s%s", which names the file, for an `xml::Exception` of
/// `document`.
void writeDocument(const std::string& file, const std::function<std::string()>& document);

}  // namespace readers
