# Runs before the system link.
set_param compiler.lockFlowCriticalPath true
