#pragma once

/// The domain in what this library makes itself: the vendor of platforms, and the types of registers.
inline constexpr char kVendorDomain[] = "torvane.com";
