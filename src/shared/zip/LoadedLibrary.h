#pragma once

/// A shared library that is loaded when it is first needed, and stays. What few hosts use costs the others nothing
/// then when they start.
class LoadedLibrary {
public:
    /// `purpose` stands in the message. Throws `HEXUserException` when it is not installed.
    LoadedLibrary(const char* soname, const char* purpose);

    /// Throws `HEXUserException` when it has no function of this name.
    template <class Function>
    void find(Function& function, const char* name) const {
        function = reinterpret_cast<Function>(find(name));
    }

private:
    void* find(const char* name) const;

    const char* soname_;
    void* library_;
};
