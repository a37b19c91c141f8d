#pragma once
/// Marks what the shared library exports; everything else is hidden.
#define ZR_API __attribute__((visibility("default")))
