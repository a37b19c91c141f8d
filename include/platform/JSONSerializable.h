#pragma once
#include "text/ZrApi.h"

namespace teq_platform {

class JSONObjectWriter;

/// Base of every model object: it can add its own keys to a document.
class ZR_API JSONSerializable {
public:
    /// Adds this object's keys, in their fixed order, to `writer`, which may already hold others. The object opens
    /// and closes no braces of its own. What is empty is left out; Booleans and numbers are always written.
    virtual void toJSON(JSONObjectWriter& writer) const = 0;
    virtual ~JSONSerializable();
};

}  // namespace teq_platform
