#include "msg/HEXAll.h"

#include <utility>

#include "text/HSTStringUtils.h"

namespace {

/// A text may quote a value of many megabytes, and is copied on its way to the caller.
std::string cut(std::string text) {
    constexpr std::size_t kMost = 1 << 16;
    return text.size() > kMost ? std::string(HSTStringUtils::utf8Prefix(text, kMost)) + "..." : std::move(text);
}

}  // namespace

HEXAll::HEXAll(ComMsgMgrInstance message) : message_(std::move(message)) {}

HEXAll::HEXAll(std::string text, std::source_location where)
    : message_{"platform", "", MsgMask::error, {}, cut(std::move(text)), where} {}

// Out of line, so that only this library defines the identity of each type.
HEXAll::~HEXAll() = default;
HEXError::~HEXError() = default;
HEXUserException::~HEXUserException() = default;
HEXFileNotFoundException::~HEXFileNotFoundException() = default;
HEXDataException::~HEXDataException() = default;
HEXAlgException::~HEXAlgException() = default;
HXMLException::~HXMLException() = default;
