#pragma once
#include <string>

class HTEQHardwarePlatform;
class HTEQSoftwarePlatform;
class Text;

/// `what`: "hardware", "emulation", or which partition.
void showHardware(Text& text, const HTEQHardwarePlatform& platform, const std::string& what);
void showSoftware(Text& text, const HTEQSoftwarePlatform& platform);

/// Device, memory and default clock, as ", tzu77-fsq2892-2L-e, 64 GB in 4 memories, default clock 300 MHz".
std::string summaryOf(const HTEQHardwarePlatform& platform);
