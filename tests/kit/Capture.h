#pragma once
#include <iostream>
#include <sstream>
#include <string>

#include "kit/Scratch.h"

/// Takes what the library prints and sends while it lives.
class Capture : public Messages {
public:
    Capture() : before_(std::cout.rdbuf(out_.rdbuf())) {}
    ~Capture() { std::cout.rdbuf(before_); }

    std::string printed() const { return out_.str(); }

private:
    std::ostringstream out_;
    std::streambuf* before_;
};
