#include <boost/property_tree/exceptions.hpp>
#include <exception>
#include <new>

#include <msg/HEXAll.h>
#include <platform/PlatformParseException.h>

#include "CommandLine.h"
#include "Console.h"

namespace {

Problem problemOf(Exit exit, const std::string& text) {
    Problem problem;
    problem.exit = exit;
    problem.text = text;
    return problem;
}

/// The exception that is being handled, as a problem.
Problem caught() {
    try {
        throw;
    } catch (const Problem& problem) {
        return problem;
    } catch (const HEXFileNotFoundException& e) {
        Problem problem = problemOf(Exit::input, "no such file");
        problem.file = e.what();
        return problem;
    } catch (const HEXUserException& e) {
        return problemOf(Exit::environment, e.what());
    } catch (const HEXAll& e) {
        return problemOf(Exit::input, e.what());
    } catch (const boost::property_tree::ptree_error& e) {
        return problemOf(Exit::input, e.what());
    } catch (const std::bad_alloc&) {
        return problemOf(Exit::environment, "out of memory");
    } catch (const std::exception& e) {
        return problemOf(Exit::fault, e.what());
    }
}

}  // namespace

int main(int argc, char** argv) {
    Console& console = Console::take();
    int exit = static_cast<int>(Exit::fault);
    try {
        exit = runCommandLine(argc, argv);
        console.flush();
    } catch (...) {
        const Problem problem = caught();
        exit = static_cast<int>(problem.exit);
        try {
            console.problem(problem);
        } catch (...) {
            return exit;  // standard error is gone too: the exit code is all that can be said
        }
    }
    return exit;
}
