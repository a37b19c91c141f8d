#include "platform/JSONSerializable.h"

namespace teq_platform {

JSONSerializable::~JSONSerializable() = default;

}  // namespace teq_platform
