#pragma once
#include <exception>
#include <string>

#include "msg/ComMsgMgr.h"
#include "text/ZrApi.h"

/// Root of the library's exceptions. Carries a message: one of the catalogue, or a plain text.
class ZR_API HEXAll : public std::exception {
public:
    explicit HEXAll(ComMsgMgrInstance message);
    explicit HEXAll(std::string text, std::source_location where = std::source_location::current());
    ~HEXAll() override;
    const char* what() const noexcept override { return message_.text.c_str(); }
    const ComMsgMgrInstance& message() const { return message_; }

private:
    ComMsgMgrInstance message_;
};

/// An error without a more specific class.
class ZR_API HEXError : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXError() override;
};
/// A problem in the user's environment: a file that cannot be read or written.
class ZR_API HEXUserException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXUserException() override;
};
/// A named file does not exist; the text is its path.
class ZR_API HEXFileNotFoundException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXFileNotFoundException() override;
};
/// Malformed input.
class ZR_API HEXDataException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXDataException() override;
};
/// An invalid internal state, or misuse of an operation.
class ZR_API HEXAlgException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXAlgException() override;
};
/// Reading or writing XML failed.
class ZR_API HXMLException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HXMLException() override;
};
