#include <boost/property_tree/exceptions.hpp>
#include <exception>
#include <new>

#include <msg/HEXFileFault.h>

#include "CommandLine.h"
#include "Console.h"

namespace {

/// The exception that is being handled, as a problem.
Problem caught() {
    try {
        throw;
    } catch (const Problem& problem) {
        return problem;
    } catch (const HEXFileNotFoundException& e) {
        return Problem::of(Exit::input, e.what(), "no such file");
    } catch (const HEXFileFault& e) {
        return Problem::of(e.problem());
    } catch (const HEXUserException& e) {
        return Problem::of(Exit::environment, "", e.what());
    } catch (const HEXAll& e) {
        return Problem::of(Exit::input, "", e.what());
    } catch (const boost::property_tree::ptree_error& e) {
        return Problem::of(Exit::input, "", e.what());
    } catch (const std::bad_alloc&) {
        return Problem::of(Exit::environment, "", "out of memory");
    } catch (const std::exception& e) {
        return Problem::of(Exit::fault, "", e.what());
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
