#pragma once
#include <string>

#include "platform/JSONSerializable.h"
#include "platform/JSONWriter.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// Fills its tree with children that have no name. Empty items are left out.
class ZR_API JSONListWriter : public JSONWriter {
public:
    void addItem(const JSONWriter& item);
    /// The same without a copy; `item` is left empty.
    void addItem(JSONWriter&& item);
    void addItem(const JSONSerializable* object);
    void addItem(const std::string& value);
    void addItem(const char* value) { addItem(std::string(value)); }
    /// Never returns and writes nothing: a list of Booleans cannot be written. Kept because callers rely on the set
    /// of overloads as it is.
    [[noreturn]] void addItem(bool value);
};

}  // namespace teq_platform
