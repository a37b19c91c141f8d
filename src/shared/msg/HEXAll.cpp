#include "msg/HEXAll.h"

#include <utility>

#include "text/HSTStringUtils.h"
#include "text/Limits.h"

HEXAll::HEXAll(ComMsgMgrInstance message) : message_(std::move(message)) {}

HEXAll::HEXAll(std::string text, std::source_location where)
    : message_{"platform", "", MsgMask::error, {}, HSTStringUtils::cut(std::move(text), text::kMaxQuoted), where} {}

// Out of line, so that only this library defines the identity of each type.
HEXAll::~HEXAll() = default;
HEXError::~HEXError() = default;
HEXUserException::~HEXUserException() = default;
HEXFileNotFoundException::~HEXFileNotFoundException() = default;
HEXDataException::~HEXDataException() = default;
HEXAlgException::~HEXAlgException() = default;
HXMLException::~HXMLException() = default;
