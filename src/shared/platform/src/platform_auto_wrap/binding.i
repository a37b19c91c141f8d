%module(jniclassname="platform") PlatformModule

%begin %{
// The JVM binding, generated from the interface files of platform_auto_wrap.
%}
%{
#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/HDFToCFAConverter.h"
#include "platform/HPLDevice.h"
#include "platform/HTEQBootImg.h"
#include "platform/HTEQDevice.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformHelper.h"
#include "platform/HTEQPlatformMgr.h"
#include "platform/HTEQPlatformUtils.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSoftwarePlatformUtils.h"
#include "platform/HTEQSystemClock.h"
#include "platform/HTEQSystemConfig.h"
#include "platform/JSONWriter.h"
#include "platform/NativeCatalogService.h"
#include "platform/NativeObjectService.h"
#include "platform/PlatformLoader.h"
#include "platform_auto_wrap/JniSupport.h"
#include "text/HSTFwdSTLIter.h"
#include "text/HSTString.h"
%}

%pragma(java) jniclassclassmodifiers="public class"
%nodefaultctor;
%nodefaultdtor;
%include <enums.swg>

%include "exceptions.i"
%include "typemaps.i"
%include "enumerations.i"
%include "containers.i"
%include "json.i"
%include "hardware.i"
%include "platform.i"
%include "software.i"
%include "registry.i"
%include "services.i"
%include "converters.i"
