#pragma once
#include <functional>
#include <string>

#include "kit/Cases.h"
#include "kit/Scratch.h"

/// What came of asking the C function for a document.
struct Answer {
    std::string outcome;   ///< "loads", "null", or the type of the exception
    std::string document;  ///< when it loads
    std::string words;     ///< of the messages and of the exception
    double seconds = 0;
};

/// Asks on a thread with a small stack: 256 KiB, under sanitizers 1 MiB.
Answer ask(const std::string& path);
/// Runs `call` on such a thread.
void onSmallStack(const std::function<void()>& call);

/// A place for hostile files, and for the temporary directory, in which every change is seen.
class Place {
public:
    /// The process's only one: the temporary directory is chosen once.
    static Place& get();

    /// A new, empty directory deep in the place, from which a name that climbs stays in it.
    std::string fresh();
    const std::string& good() const { return good_; }
    /// Files below the temporary directory; those that stand there are a fault.
    std::string leftovers() const;
    /// Name, kind, size, mode and time of everything in the place but the temporary directory's own folders.
    std::string state() const;

private:
    Place();
    Scratch scratch_;
    std::string good_;
    int count_ = 0;
};

/// Asks for `path` and checks everything that untrusted input must not do, whatever it holds: the answer comes in time
/// and is one of the documented ones, nothing is written, the host is as it was, and the next good platform loads.
Answer tried(const std::string& path);
/// The same, and the answer is the expected one; `words` stand among its words.
void expectAnswer(const std::string& path, const std::string& outcome, const std::string& words);
/// The same of each case of a file of tests/cases/hostile: its last line is the outcome, "any" for one of those that
/// are documented, and a part of the words; `place` makes the file of its other lines.
void expectAnswers(const std::string& file, const std::function<std::string(const cases::Case&)>& place);
