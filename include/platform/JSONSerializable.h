#pragma once
#include "text/ZrApi.h"

namespace teq_platform {

class JSONObjectWriter;

/// Base of every model object: it can add its own keys to a document.
class ZR_API JSONSerializable {
public:
    /// Adds this object's keys, in their fixed order, to `writer`, which may already hold others. The object does
    /// not open or close braces. Empty values are omitted; Booleans and numbers are always written.
    virtual void toJSON(JSONObjectWriter& writer) const = 0;
    virtual ~JSONSerializable();
};

}  // namespace teq_platform
