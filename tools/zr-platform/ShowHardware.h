#pragma once
#include <string>

class HTEQHardwarePlatform;
class HTEQSoftwarePlatform;
class Text;

void showHardware(Text& text, const HTEQHardwarePlatform& platform, const std::string& what);
void showSoftware(Text& text, const HTEQSoftwarePlatform& platform);
