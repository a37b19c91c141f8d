#include "capi/Guard.h"

#include <fmt/core.h>

#include <boost/property_tree/exceptions.hpp>
#include <exception>
#include <memory>
#include <new>

#include "platform/PlatformParseException.h"
#include "readers/Problem.h"
#include "text/HSTStringUtils.h"

/// Views only, so that the one for want of memory needs none.
struct zr_error {
    zr_code code;
    const char* text;
    const char* file;
    const char* member;
    const char* id;
    std::uint64_t line, column;
};

namespace capi {
namespace {

constexpr zr_error noMemory{ZR_NO_MEMORY, "out of memory", "", "", "", 0, 0};

struct OwnedError : zr_error {
    OwnedError(zr_code code, FileProblem&& from) : zr_error{}, problem(std::move(from)) {
        problem.text = HSTStringUtils::printable(problem.text);
        static_cast<zr_error&>(*this) = {
            code,         problem.text.c_str(), problem.file.c_str(), problem.member.c_str(), problem.id.c_str(),
            problem.line, problem.column};
    }
    FileProblem problem;
};

/// The words of an exception, and of the ones that are nested in it.
std::string wordsOf(const std::exception& e) {
    std::string words = e.what();
    try {
        std::rethrow_if_nested(e);
    } catch (const std::exception& reason) {
        words += ": " + wordsOf(reason);
    } catch (...) {
        words += ": unknown reason";
    }
    return words;
}

/// The exception that is being handled. The order is from narrow kinds to wide ones.
Failure caught(const char* file) {
    const auto plain = [file](zr_code code, const std::exception& e) -> Failure {
        return {code, {.file = file ? file : "", .text = wordsOf(e)}};
    };
    try {
        throw;
    } catch (Failure& failure) {
        return std::move(failure);
    } catch (const HEXFileFault& e) {
        return {ZR_BAD_INPUT, e.problem()};
    } catch (const HEXFileNotFoundException& e) {
        return {ZR_NOT_FOUND, {.file = e.what(), .text = "no such file"}};
    } catch (const HEXUserException& e) {
        return plain(ZR_ENVIRONMENT, e);
    } catch (const HEXAll& e) {
        return plain(ZR_BAD_INPUT, e);
    } catch (const teq_platform::PlatformParseException& e) {
        return plain(ZR_BAD_INPUT, e);
    } catch (const boost::property_tree::ptree_error& e) {
        return {ZR_BAD_INPUT, readers::problemOf(e, file ? file : "")};
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& e) {
        return plain(ZR_INTERNAL, e);
    } catch (...) {
        return {ZR_INTERNAL, {.file = file ? file : "", .text = "unknown exception"}};
    }
}

zr_error* makeError(const char* file) noexcept {
    try {
        Failure failure = caught(file);
        return new OwnedError(failure.code, std::move(failure.problem));
    } catch (...) {
        return const_cast<zr_error*>(&noMemory);
    }
}

}  // namespace

void wrongUse(const std::string& text) { throw Failure{ZR_WRONG_USE, {.text = text}}; }
void notFound(const std::string& file, const std::string& text) {
    throw Failure{ZR_NOT_FOUND, {.file = file, .text = text}};
}
void refuse(const std::string& file, const std::string& text) {
    throw Failure{ZR_REFUSED, {.file = file, .text = text}};
}

zr_code reportCaught(zr_error** error, const char* file) noexcept {
    zr_error* const made = makeError(file);
    const zr_code code = made->code;
    if (error)
        *error = made;
    else
        zr_error_free(made);
    return code;
}

std::string needText(const char* value, const char* name) { return &need(value, name); }

void checkFlags(std::uint32_t flags, std::uint32_t taken) {
    if ((flags & ~taken) != 0) wrongUse(fmt::format("the flags {:#x} are none of this call's", flags & ~taken));
}

void checkIndex(std::uint64_t index, std::uint64_t count) {
    if (index >= count) wrongUse(fmt::format("there is no index {}: there are {}", index, count));
}

}  // namespace capi

zr_code zr_error_code(const zr_error* error) noexcept { return error ? error->code : ZR_OK; }
const char* zr_error_text(const zr_error* error) noexcept { return error ? error->text : ""; }
const char* zr_error_file(const zr_error* error) noexcept { return error ? error->file : ""; }
const char* zr_error_member(const zr_error* error) noexcept { return error ? error->member : ""; }
std::uint64_t zr_error_line(const zr_error* error) noexcept { return error ? error->line : 0; }
std::uint64_t zr_error_column(const zr_error* error) noexcept { return error ? error->column : 0; }
const char* zr_error_id(const zr_error* error) noexcept { return error ? error->id : ""; }

void zr_error_free(zr_error* error) noexcept {
    if (error != &capi::noMemory) delete static_cast<capi::OwnedError*>(error);
}
