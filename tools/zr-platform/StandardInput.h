#pragma once
#include <string>

#include <platform/HTEQTmpDirObject.h>

#include "Verbs.h"

/// Standard input in place of one file that a verb reads: it is kept in the private temporary directory while this lives.
class StandardInput {
public:
    /// Replaces the argument "-". Throws if the verb does not read a file there, or reads two.
    void replace(const Verb& verb, Call& call);

private:
    std::string keep();

    HTEQTmpDirObject directory_;
};
