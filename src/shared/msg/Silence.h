#pragma once

namespace msg {

/// While one lives, the texts that the library prints on the standard streams are dropped on its thread. Lives on the stack.
class Silence {
public:
    Silence() { ++depth; }
    ~Silence() { --depth; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

    static bool isKept() { return depth > 0; }

private:
    static thread_local int depth;
};

}  // namespace msg
