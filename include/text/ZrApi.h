#pragma once
/// Marks what leaves the shared library; all else is hidden.
#define ZR_API __attribute__((visibility("default")))
