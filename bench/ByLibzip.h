#pragma once
#include <string>

/// A member by libzip; its header stands apart because its names clash with those of our reader.
std::string readByLibzip(const char* archive, const char* member);
/// Puts a file and the metadata into an archive, and a comment: with one close, or a close for each.
void replaceByLibzip(const char* archive, const char* source, bool oneByOne);
