// Every call runs in one guarded region. What it throws is raised in Java, where it is a checked exception; the wrapper
// then returns zero. `delete` of a proxy throws nothing that must be caught, because finalizers call it.
%feature("except", throws="ui.frmwork.cmd.CommandFailedException") {
    try {
        $action
    } catch (...) {
        jvm::raise(jenv);
        return $null;
    }
}
%define ZR_DESTRUCTOR(CLASS)
%feature("except:throws", "RuntimeException") ~CLASS;
%enddef
