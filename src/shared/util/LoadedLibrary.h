#pragma once

/// A shared library that is loaded on first use and stays loaded, so that hosts that do not use it start without its
/// cost.
class LoadedLibrary {
public:
    /// `purpose` is used in the message. Throws `HEXUserException` if it is not installed.
    LoadedLibrary(const char* soname, const char* purpose);

    /// Throws `HEXUserException` if it has no function of this name.
    template <class Function>
    void find(Function& function, const char* name) const {
        function = reinterpret_cast<Function>(find(name));
    }

private:
    void* find(const char* name) const;

    const char* soname_;
    void* library_;
};
