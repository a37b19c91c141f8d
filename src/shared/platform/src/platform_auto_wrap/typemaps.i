// How values are converted. What can fail is done by functions of `jvm` (JniSupport.h), which raise the Java exception
// themselves and never throw.

// Strings.
%typemap(jni) std::string, const std::string&, const HSTString& "jstring"
%typemap(jtype) std::string, const std::string&, const HSTString& "String"
%typemap(jstype) std::string, const std::string&, const HSTString& "String"
%typemap(javain) std::string, const std::string&, const HSTString& "$javainput"
%typemap(javaout) std::string, const std::string& "{ return $jnicall; }"
%typemap(in) const std::string& (std::string text) {
    if (!jvm::toText(jenv, $input, text, "null std::string")) return $null;
    $1 = &text;
}
%typemap(in) const HSTString& (std::string text) {
    if (!jvm::toText(jenv, $input, text, "null HSTString")) return $null;
    $1 = &text;
}
%typemap(out) std::string { $result = jvm::toJava(jenv, $1); }
%typemap(out) const std::string& { $result = $1 ? jvm::toJava(jenv, *$1) : nullptr; }
%typemap(typecheck) std::string, const std::string&, const HSTString& = char*;

// The object itself, lists that are filled, objects that are returned as copies.
%typemap(in) SWIGTYPE* self {
    $1 = *($&1_ltype)&$input;
    if (!$1) {
        SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, "$*1_ltype & reference is null");
        return $null;
    }
}
// A null list is reported with the name that the class gives the type of the list.
%define ZR_REFERENCE(TEXT, TYPES...)
%typemap(in) TYPES {
    $1 = *($&1_ltype)&$input;
    if (!$1) {
        SWIG_JavaThrowException(jenv, SWIG_JavaNullPointerException, TEXT " reference is null");
        return $null;
    }
}
%enddef
%define ZR_LIST(CLASS, NAME, ELEMENT...)
ZR_REFERENCE(#CLASS "::" #NAME " &", std::vector<ELEMENT>&)
ZR_REFERENCE(#CLASS "::" #NAME " const &", const std::vector<ELEMENT>&)
%enddef
ZR_REFERENCE("$1_type", SWIGTYPE&, bool& found)
ZR_REFERENCE("HSTVector< HSTString > &", std::vector<std::string>& TEXTS)
%typemap(out) SWIGTYPE { *($&1_ltype*)&$result = jvm::copy(jenv, $1); }

// Numbers that are passed by their address: NativeCell lends four bytes for the call.
%typemap(jstype) uint32_t "Long"
%typemap(javain) uint32_t "NativeCell.of($javainput)"
%typemap(jstype) uint32_t getter "long"
%typemap(out) uint32_t { $result = static_cast<jlong>($1); }
%typemap(javaout) uint32_t { return $jnicall; }
%typemap(jstype) bool& found "boolean[]"
%typemap(javain, pre="    long foundCell = NativeCell.of(found);", post="      NativeCell.read(foundCell, found);",
         pgcppname="found") bool& found "foundCell"

// Objects that are made in Java and whose destructor is that of their base class.
%define ZR_DELETED_BY_BASE(CLASS)
%typemap(javadestruct_derived, methodname="delete", methodmodifiers="public synchronized") CLASS {
    swigCPtr = 0;
    super.delete();
  }
%enddef
ZR_DELETED_BY_BASE(HTEQReconfigurablePartition)
ZR_DELETED_BY_BASE(HTEQSystemClock)
ZR_DELETED_BY_BASE(HTEQProcessorGroup)
ZR_DELETED_BY_BASE(HTEQBootImg)
ZR_DELETED_BY_BASE(HTEQSystemConfig)
ZR_DELETED_BY_BASE(HTEQSoftwarePlatform)
