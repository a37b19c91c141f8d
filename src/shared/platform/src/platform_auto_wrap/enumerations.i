// Enumerations that are passed by the address of a 32-bit value, which NativeCell lends. Java has them as enums.
#define ZR_API
%rename(TEQPfmFileTypes) HTEQPfmFileTypes;
%rename(TEQDesignIntentStorage) HTEQDesignIntentStorage;
%ignore HTEQPfmFileTypes::TclFileType;
%rename("$ignore", %$isfunction, fullname=1, regextarget=1) "^HTEQPfmFileTypes::";
%javaconst(1);

%include "platform/HTEQPfmFileTypes.h"
class HTEQDesignIntentStorage {
public:
    enum class Key : unsigned { serverManaged = 1, externalHost = 2, embedded = 4, dataCenter = 8 };
};
namespace teq_platform {
class PlatformLoader {
public:
    enum class HwMetadataMode { Default, PrimaryJsonOnly, XmlOnly };
};
}  // namespace teq_platform

%define ZR_ENUMERATION(TYPE, JAVA)
%typemap(jni) TYPE "jlong"
%typemap(jtype) TYPE "long"
%typemap(jstype) TYPE "JAVA"
%typemap(javain) TYPE "NativeCell.of($javainput == null ? null : $javainput.swigValue())"
%typemap(in) TYPE {
    const auto* value = *reinterpret_cast<const std::uint32_t**>(&$input);
    if (!value) {
        SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "Attempt to dereference null " #TYPE);
        return $null;
    }
    $1 = static_cast<TYPE>(*value);
}
%enddef
ZR_ENUMERATION(HTEQPfmFileTypes::FileType, TEQPfmFileTypes.FileType)
ZR_ENUMERATION(HTEQDesignIntentStorage::Key, TEQDesignIntentStorage.Key)
ZR_ENUMERATION(teq_platform::PlatformLoader::HwMetadataMode, PlatformLoader.HwMetadataMode)
