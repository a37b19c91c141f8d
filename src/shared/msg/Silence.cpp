#include "msg/Silence.h"

namespace msg {

thread_local int Silence::depth = 0;

}  // namespace msg
