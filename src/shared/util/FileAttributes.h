#pragma once

namespace util {

/// Gives the open file `to`, which only its maker can use, the owner, group, mode, access control list and extended
/// attributes of the open file `from`, as far as permitted. At no moment does anybody have more access than to `from`:
/// what cannot be given to the same group or by the same list is given to the owner only. Returns 0 or the error number.
int copyAttributes(int from, int to);

}  // namespace util
