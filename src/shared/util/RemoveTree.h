#pragma once
#include "util/Descriptor.h"

/// Removing as far as possible, for destructors: nothing is thrown, and links are not followed.
namespace util {

/// Removes what has this name in an open directory, with its contents.
void removeAt(int directory, const char* name);
/// Removes what is in an open directory.
void removeContents(Descriptor directory);

}  // namespace util
