#pragma once
#include <tcl.h>

/// Tcl's functions, loaded and initialised when the first command is evaluated.
struct TclLibrary {
    decltype(&Tcl_FindExecutable) findExecutable;
    decltype(&Tcl_SetSystemEncoding) setSystemEncoding;
    decltype(&Tcl_FinalizeThread) finalizeThread;
    decltype(&Tcl_CreateInterp) createInterp;
    decltype(&Tcl_DeleteInterp) deleteInterp;
    decltype(&Tcl_Init) init;
    decltype(&Tcl_EvalEx) evalEx;
    decltype(&Tcl_CancelEval) cancelEval;
    decltype(&Tcl_GetStringResult) getStringResult;
    decltype(&Tcl_GetString) getString;
    decltype(&Tcl_NewStringObj) newStringObj;
    decltype(&Tcl_SetObjResult) setObjResult;
    decltype(&Tcl_CreateObjCommand) createObjCommand;
    decltype(&Tcl_DeleteCommand) deleteCommand;
    decltype(&Tcl_GetCommandInfo) getCommandInfo;
    decltype(&Tcl_LimitTypeSet) limitTypeSet;
    decltype(&Tcl_LimitSetTime) limitSetTime;
    decltype(&Tcl_LimitTypeExceeded) limitTypeExceeded;
    decltype(&Tcl_CreateChannel) createChannel;
    decltype(&Tcl_SetChannelOption) setChannelOption;
    decltype(&Tcl_GetStdChannel) getStdChannel;
    decltype(&Tcl_SetStdChannel) setStdChannel;
    decltype(&Tcl_RegisterChannel) registerChannel;
    decltype(&Tcl_UnregisterChannel) unregisterChannel;

    /// Whether the host uses the same library, whose settings are then left alone.
    bool isOfHost = false;
};

/// Throws `HEXUserException` if Tcl is not installed.
const TclLibrary& tclLibrary();
